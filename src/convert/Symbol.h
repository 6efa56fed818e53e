#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>

#include "text/WhiteSpace.h"

/// The alphabet of patterns: the ASCII characters, and three classes of all other code units.
///
/// Patterns hold only ASCII characters and `\s`, `\d` and `.`, so they cannot tell two units of the
/// same class apart. Case is ignored for ASCII letters alone. ECMAScript never takes a character
/// beyond ASCII for an ASCII one, unless a pattern has the flag "u".
namespace kx {

using Symbol = std::uint8_t;

inline constexpr Symbol kWideSpace = 128;    ///< white space beyond ASCII
inline constexpr Symbol kWideLineEnd = 129;  ///< U+2028 and U+2029, which `.` does not match
inline constexpr Symbol kWideOther = 130;
inline constexpr std::size_t kSymbolCount = 131;

constexpr Symbol wideSymbolOf(char16_t unit) {
    if (unit == u'\u2028' || unit == u'\u2029') return kWideLineEnd;
    return isWhiteSpace(unit) ? kWideSpace : kWideOther;
}

constexpr Symbol symbolOf(char16_t unit) {
    return unit < 128 ? static_cast<Symbol>(unit) : wideSymbolOf(unit);
}

constexpr char16_t capitalOf(char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}

constexpr char16_t smallOf(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

using SymbolSet = std::bitset<kSymbolCount>;

SymbolSet whiteSpaceSet();                 ///< `\s`
SymbolSet digitSet();                      ///< `\d`
SymbolSet anyButLineEndSet();              ///< `.`
SymbolSet literalSet(char16_t asciiUnit);  ///< a letter in both cases

}  // namespace kx
