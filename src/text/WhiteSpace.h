#pragma once

#include <string_view>

namespace kx {

/// Whether a code unit is white space or a line terminator of ECMAScript. This is the set that "\s"
/// stands for in its regular expressions. Unlike with iswspace(), the locale does not matter.
constexpr bool isWhiteSpace(char16_t unit) {
    if (unit > u' ' && unit < u'\u00A0') return false;  // nearly every unit
    return (unit >= u'\t' && unit <= u'\r')             // TAB, LF, VT, FF, CR
           || unit == u' ' || unit == u'\u00A0'         // blank, no-break space
           || unit == u'\u1680'                         // Ogham space mark
           || (unit >= u'\u2000' && unit <= u'\u200A')  // en quad to hair space
           || unit == u'\u2028' || unit == u'\u2029'    // line and paragraph separator
           || unit == u'\u202F' || unit == u'\u205F'    // narrow and mathematical space
           || unit == u'\u3000'                         // ideographic space
           || unit == u'\uFEFF';                        // zero-width no-break space
}

constexpr std::u16string_view withoutLeadingSpace(std::u16string_view text) {
    while (!text.empty() && isWhiteSpace(text.front())) text.remove_prefix(1);
    return text;
}

constexpr std::u16string_view withoutTrailingSpace(std::u16string_view text) {
    while (!text.empty() && isWhiteSpace(text.back())) text.remove_suffix(1);
    return text;
}

constexpr std::u16string_view withoutOuterSpace(std::u16string_view text) {
    return withoutTrailingSpace(withoutLeadingSpace(text));
}

}  // namespace kx
