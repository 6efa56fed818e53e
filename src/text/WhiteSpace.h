#pragma once

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

}  // namespace kx
