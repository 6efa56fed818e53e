#pragma once

#include <cstddef>
#include <string_view>

namespace kx {

/// The line terminators of ECMAScript. A carriage return followed by a line feed is one line end.
inline constexpr std::u16string_view kLineEnds = u"\n\r\u2028\u2029";

constexpr bool isLineEnd(char16_t unit) {
    return unit == u'\n' || unit == u'\r' || unit == u'\u2028' || unit == u'\u2029';
}

/// The start of the next line behind the position `start`, or npos if there is none.
constexpr std::size_t nextLine(std::u16string_view text, std::size_t start) {
    std::size_t const end = text.find_first_of(kLineEnds, start);
    if (end == std::u16string_view::npos) return end;
    return end + (text.substr(end).starts_with(u"\r\n") ? 2 : 1);
}

}  // namespace kx
