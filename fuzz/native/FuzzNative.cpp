// Does the same in two hosts, one of which leaves everything to V8, and compares what a caller
// sees.
//
// Every two bytes are a choice: what is done next, with which formula, variable and value.
#include <cstddef>
#include <cstdint>
#include <string>

#include "HostPair.h"
#include "support/Check.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static KxJsParser const keepsIsolate;  // which would be made anew for each input
    std::size_t at = 0;
    HostPair hosts([&]() -> std::uint64_t {
        if (at + 2 > size) return 0;
        at += 2;
        return data[at - 2] + 256U * data[at - 1];
    });
    while (at + 2 <= size) kx::fuzz::checkEqual(hosts.step(), u"", "a difference");
    kx::fuzz::checkEqual(hosts.compareContexts(), u"", "a difference");
    return 0;
}
