#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>

#include "text/WhiteSpace.h"

/// The alphabet that patterns are matched over.
///
/// Patterns hold ASCII characters and the classes `\s`, `\d` and `.` only, so two code units beyond
/// ASCII that belong to the same of three classes are alike to every pattern. Patterns are matched
/// without regard to case; under ECMAScript's folding no character beyond ASCII ever equals an
/// ASCII one, so a letter in a pattern stands for two symbols, its capital and its small form.
namespace kx {

using Symbol = std::uint8_t;

inline constexpr Symbol kWideSpace = 128;  ///< white space beyond ASCII
inline constexpr Symbol kWideLineEnd =
    129;  ///< U+2028, U+2029: white space, and not matched by "."
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
SymbolSet literalSet(char16_t asciiUnit);  ///< the character, in both cases if it is a letter

}  // namespace kx
