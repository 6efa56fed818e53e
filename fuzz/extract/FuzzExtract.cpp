// Extracts the free variables of generated sources, for a short time each.
//
// The first byte says whether the source is converted before.
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "support/Check.h"
#include "support/Impossible.h"
#include "support/SaneHost.h"
#include "support/Units.h"

namespace {

constexpr std::chrono::milliseconds kTimeLimit{100};
constexpr std::size_t kMemoryLimit = std::size_t{32} << 20;
constexpr std::u16string_view kUntouched = u"untouched";

/// The limit holds for the hosts that extraction makes.
KxJsParser& hostOfLimit() {
    static KxJsParser host;
    host.setMemoryLimit(kMemoryLimit);
    return host;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) return 0;
    static kx::fuzz::SaneHost sane;
    static KxJsParser const& limited = hostOfLimit();
    static_cast<void>(limited);
    std::u16string const text =
        kx::fuzz::textOf({reinterpret_cast<char const*>(data) + 1, size - 1});
    if (kx::fuzz::mayBeImpossible(text)) return 0;
    std::u16string const source = data[0] % 2 == 0 ? Converter::_convert(text.c_str()) : text;
    std::u16string error(kUntouched);
    std::vector<std::u16string> const names =
        KxJsParser::_extractVariable(source, error, kTimeLimit);
    for (std::u16string const& name : names) {
        kx::fuzz::check(name.find(u' ') == std::u16string::npos, "a name holds no blank");
    }
    kx::fuzz::check(!error.empty(), "an error is a text");
    sane.checkNow();
    return 0;
}
