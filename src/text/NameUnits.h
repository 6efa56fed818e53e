#pragma once

#include <string_view>

#include "text/Digit.h"
#include "text/WhiteSpace.h"

namespace kx {

/// Which code units can be part of a name in JavaScript.
///
/// Up to U+024F, the end of the Latin letters, the answers are exact. Exact answers beyond would
/// need the tables of Unicode. There, the "Latin" functions return false for every unit, and the
/// "mayBe" functions return true for all but white space, punctuation and signs.
/// @{
constexpr bool isLatinNameStart(char16_t unit) {
    if (unit < 0x80) {
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_' ||
               unit == u'$';
    }
    bool const isSign = unit == u'\u00D7' || unit == u'\u00F7';
    return unit == u'\u00AA' || unit == u'\u00B5' || unit == u'\u00BA' ||
           (unit >= u'\u00C0' && unit <= u'\u024F' && !isSign);
}

constexpr bool isLatinNamePart(char16_t unit) {
    return isLatinNameStart(unit) || isDigit(unit) || unit == u'\u00B7';
}

constexpr bool mayBeNamePart(char16_t unit) {
    if (unit <= u'\u024F') return isLatinNamePart(unit);
    if (unit >= u'\u2000' && unit <= u'\u206F') {
        bool const isJoiner = unit == u'\u200C' || unit == u'\u200D';
        return isJoiner || unit == u'\u203F' || unit == u'\u2040' || unit == u'\u2054';
    }
    bool const isSign = (unit >= u'\u2190' && unit <= u'\u2BFF') ||
                        (unit >= u'\u3001' && unit <= u'\u3003') ||
                        (unit >= u'\u3008' && unit <= u'\u3020');
    return !isSign && !isWhiteSpace(unit);
}

constexpr bool mayBeNameStart(char16_t unit) {
    return mayBeNamePart(unit) && (unit > u'\u024F' || isLatinNameStart(unit));
}
/// @}

/// Whether `text` may be a name: the same "maybe" for all its code units. Reserved words are names
/// here.
constexpr bool mayBeName(std::u16string_view text) {
    if (text.empty() || !mayBeNameStart(text.front())) return false;
    for (char16_t const unit : text) {
        if (!mayBeNamePart(unit)) return false;
    }
    return true;
}

}  // namespace kx
