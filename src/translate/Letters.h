#pragma once

#include <algorithm>
#include <string_view>

#include "text/Digit.h"

namespace kx::translate {

/// Letters beyond U+007F that are one unit, by Unicode's categories.
bool isLetterBeyondAscii(char16_t unit);
/// The upper-case partner of such a letter where that is one unit too; otherwise the unit itself.
char16_t upperCaseBeyondAscii(char16_t unit);

inline bool isNameStart(char16_t unit) {
    if (unit < 0x80) {
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_';
    }
    return isLetterBeyondAscii(unit);
}

inline bool isNamePart(char16_t unit) { return isDigit(unit) || isNameStart(unit); }

/// Names are told apart without regard to case: by their upper-case form.
inline char16_t upperCase(char16_t unit) {
    if (unit >= 0x80) return upperCaseBeyondAscii(unit);
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

constexpr bool isBlank(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\u00A0'; }
constexpr bool isLineBreak(char16_t unit) { return unit == u'\r' || unit == u'\n'; }

/// Whether `text` is `word`, an upper-case one, in whatever case.
inline bool isWord(std::u16string_view text, std::u16string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char16_t a, char16_t b) { return upperCase(a) == b; });
}

}  // namespace kx::translate
