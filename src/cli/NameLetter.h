#pragma once

namespace kx {

/// Whether `unit` is white space or a line end of the language.
constexpr bool isBlank(char16_t unit) {
    return (unit >= 0x09 && unit <= 0x0D) || unit == u' ' || unit == 0xA0 || unit == 0x1680 ||
           (unit >= 0x2000 && unit <= 0x200A) || unit == 0x2028 || unit == 0x2029 ||
           unit == 0x202F || unit == 0x205F || unit == 0x3000 || unit == 0xFEFF;
}

/// Whether `unit` can stand in a name of a script. Exact up to U+00FF; beyond it, blanks and the
/// blocks of punctuation and signs are none, and everything else is taken for a letter, halves of
/// surrogate pairs too: what really is a name, the engine says.
constexpr bool isNamePart(char16_t unit) {
    if (unit < 0x80) {
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
               (unit >= u'0' && unit <= u'9') || unit == u'_' || unit == u'$';
    }
    if (unit < 0x100) {
        return unit == 0xAA || unit == 0xB5 || unit == 0xB7 || unit == 0xBA ||
               (unit >= 0xC0 && unit != 0xD7 && unit != 0xF7);
    }
    bool const isJoiner = unit == 0x200C || unit == 0x200D;
    bool const isPunctuation = unit >= 0x2000 && unit <= 0x206F;
    bool const isSign = (unit >= 0x2190 && unit <= 0x2BFF) || (unit >= 0x3001 && unit <= 0x3003) ||
                        (unit >= 0x3008 && unit <= 0x3020);
    return isJoiner || !(isBlank(unit) || isPunctuation || isSign);
}

/// Whether a name can begin with `unit`.
constexpr bool isNameStart(char16_t unit) {
    return isNamePart(unit) && !(unit >= u'0' && unit <= u'9') && unit != 0xB7;
}

}  // namespace kx
