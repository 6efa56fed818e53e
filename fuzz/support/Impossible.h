#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace kx::fuzz {

/// Whether a source may ask one built-in function for what no limit can end: the calls
/// that SECURITY.md lists under "What only an isolated host survives". They take a number far
/// beyond what a formula's data has, and one of a few names; a source with both is skipped.
inline bool mayBeImpossible(std::u16string_view source) {
    static constexpr std::array<std::u16string_view, 22> kCalls{
        u"Array",   u"length", u"split",   u"replace",    u"repeat",    u"pad",
        u"fill",    u"sort",   u"concat",  u"forEach",    u"indexOf",   u"IndexOf",
        u"reverse", u"splice", u"unshift", u"copyWithin", u"REPLICATE", u"REPEAT",
        u"REPL",    u"SPACE",  u"PAD",     u"]="};
    static constexpr std::u16string_view kDigits = u"0123456789abcdefABCDEF_";
    std::size_t run = 0;
    bool hasLargeNumber = source.find(u"**") != std::u16string_view::npos ||
                          source.find(u"<<") != std::u16string_view::npos ||
                          source.find(u"Infinity") != std::u16string_view::npos ||
                          source.find(u"MAX_") != std::u16string_view::npos ||
                          source.find(u"pow") != std::u16string_view::npos;
    for (std::size_t i = 0; i < source.size() && !hasLargeNumber; ++i) {
        run = kDigits.find(source[i]) == std::u16string_view::npos ? 0 : run + 1;
        bool const isExponent = (source[i] == u'e' || source[i] == u'E') && i > 0 &&
                                source[i - 1] >= u'0' && source[i - 1] <= u'9';
        hasLargeNumber = isExponent || run >= 7;
    }
    return hasLargeNumber && std::any_of(kCalls.begin(), kCalls.end(), [source](auto call) {
               return source.find(call) != std::u16string_view::npos;
           });
}

}  // namespace kx::fuzz
