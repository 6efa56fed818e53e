#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>

#include "library/WhiteSpace.h"

/// The alphabet that patterns are matched over.
///
/// Patterns hold ASCII characters and the classes `\s`, `\d` and `.` only, and are matched without
/// regard to case. Under that case folding no character beyond ASCII ever equals an ASCII one, so
/// two code units that fold to the same symbol below are alike to every pattern: 128 ASCII symbols
/// with the small letters left unused, and three for all the rest.
namespace kx {

using Symbol = std::uint8_t;

inline constexpr Symbol wideSpace = 128;    ///< white space beyond ASCII
inline constexpr Symbol wideLineEnd = 129;  ///< U+2028, U+2029: white space, and not matched by "."
inline constexpr Symbol wideOther = 130;
inline constexpr std::size_t symbolCount = 131;

constexpr Symbol wideSymbolOf(char16_t unit) {
    if (unit == u'\u2028' || unit == u'\u2029') return wideLineEnd;
    return isWhiteSpace(unit) ? wideSpace : wideOther;
}

constexpr Symbol symbolOf(char16_t unit) {
    if (unit >= 128) return wideSymbolOf(unit);
    return static_cast<Symbol>(unit >= u'a' && unit <= u'z' ? unit - 32 : unit);
}

constexpr bool isSpaceSymbol(Symbol symbol) {
    return symbol < 128 ? isWhiteSpace(symbol) : symbol != wideOther;
}

using SymbolSet = std::bitset<symbolCount>;

SymbolSet whiteSpaceSet();     ///< `\s`
SymbolSet digitSet();          ///< `\d`
SymbolSet anyButLineEndSet();  ///< `.`
SymbolSet singleSet(Symbol symbol);

}  // namespace kx
