#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kx {

/// Whether a code unit is the first or the second of the two that stand for a character beyond
/// U+FFFF.
/// @{
constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
/// @}

/// Returns the character at the position `at` and moves `at` behind it. A surrogate without its
/// partner is returned as it is. Precondition: at < text.size().
constexpr char32_t nextCharacter(std::u16string_view text, std::size_t& at) {
    char16_t const unit = text[at++];
    if (!isHighSurrogate(unit) || at == text.size() || !isLowSurrogate(text[at])) return unit;
    return 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[at++]} - 0xDC00);
}

/// Appends a character up to U+10FFFF. One beyond U+FFFF becomes two units.
constexpr void appendCharacter(std::u16string& text, char32_t character) {
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

}  // namespace kx
