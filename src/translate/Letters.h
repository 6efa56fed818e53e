#pragma once

namespace kx::translate {

/// Letters beyond U+007F that are one unit, by Unicode's categories.
bool isLetterBeyondAscii(char16_t unit);
/// The upper-case partner of such a letter where that is one unit too; otherwise the unit itself.
char16_t upperCaseBeyondAscii(char16_t unit);

constexpr bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

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

}  // namespace kx::translate
