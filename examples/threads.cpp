// Runs formulas on two threads. A host works only on the thread that made it, so each thread makes
// its own. The conversion needs no host; threads may share its result.

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "host/KxJsVariable.h"

namespace {

constexpr std::int32_t kLast = 2000;

/// The results of one thread. The main thread reads them after join().
struct Share {
    std::vector<std::u16string> results;
    std::u16string error;
};

/// Runs the formula for every second number from `first`, up to the first error.
void work(std::u16string const& javaScript, std::int32_t first, Share& share) {
    KxJsParser parser;
    parser.initialize();
    parser.addSetVariable(KxJsVariable(u"N", first));
    std::int32_t const script = parser.parse(javaScript, share.error);
    if (script < 0) return;
    for (std::int32_t number = first; number <= kLast; number += 2) {
        parser.addSetVariable(KxJsVariable(u"N", number));
        share.error.clear();  // a run that succeeds leaves it alone
        std::u16string const result = parser.execute(script, share.error);
        if (!share.error.empty()) return;
        share.results.push_back(result);
    }
}

std::string utf8(std::u16string const& text) { return std::filesystem::path(text).string(); }

}  // namespace

int main() {
    std::u16string const javaScript = Converter::_convert(u"STRZ(MOD(N*N,97),3)");

    std::array<Share, 2> shares;
    std::thread odd(work, std::cref(javaScript), 1, std::ref(shares[0]));
    std::thread even(work, std::cref(javaScript), 2, std::ref(shares[1]));
    odd.join();
    even.join();

    for (Share const& share : shares) {
        std::size_t const count = share.results.size();
        std::cout << count << " results";
        if (count > 0) {
            std::cout << ", from " << utf8(share.results.front()) << " to "
                      << utf8(share.results.back());
        }
        std::cout << '\n' << utf8(share.error);
    }

    // On another thread, a host does nothing and reports an error.
    KxJsParser parser;
    parser.initialize();
    std::u16string error;
    std::int32_t const script = parser.parse(u"6*7", error);
    if (script < 0) {
        std::cout << utf8(error) << '\n';
        return 1;
    }
    std::thread([&] {
        std::cout << "on another thread: \"" << utf8(parser.execute(script, error)) << "\", "
                  << utf8(error) << '\n';
    }).join();
    error.clear();
    std::cout << "on its own: " << utf8(parser.execute(script, error)) << '\n';
}
