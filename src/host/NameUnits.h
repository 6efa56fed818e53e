#pragma once

namespace kx {

/// What stands in names of JavaScript, up to the end of the Latin letters (U+024F) and exactly
/// there. Beyond, where it would take the tables of Unicode to know, nothing does.
/// @{
inline bool isLatinNameStart(char16_t unit) {
    if (unit < 0x80) {
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_' ||
               unit == u'$';
    }
    bool const isSign = unit == u'\u00D7' || unit == u'\u00F7';
    return unit == u'\u00AA' || unit == u'\u00B5' || unit == u'\u00BA' ||
           (unit >= u'\u00C0' && unit <= u'\u024F' && !isSign);
}
inline bool isLatinNamePart(char16_t unit) {
    return isLatinNameStart(unit) || (unit >= u'0' && unit <= u'9') || unit == u'\u00B7';
}
/// @}

/// The same with all that lies beyond, but for blanks and punctuation.
inline bool mayBeNamePart(char16_t unit) {
    if (unit <= u'\u024F') return isLatinNamePart(unit);
    if (unit >= u'\u2000' && unit <= u'\u206F') {
        bool const isJoiner = unit == u'\u200C' || unit == u'\u200D';
        return isJoiner || unit == u'\u203F' || unit == u'\u2040' || unit == u'\u2054';
    }
    bool const isPunctuation = unit >= u'\u3000' && unit <= u'\u3003';
    return unit != u'\u1680' && !isPunctuation && unit != u'\uFEFF';
}

}  // namespace kx
