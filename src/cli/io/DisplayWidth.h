#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kx {

/// Sets the C library's character encoding to UTF-8, whatever the user's locale, since kxjs reads
/// and writes only UTF-8. Number formats and messages stay.
void useUtf8();

/// The width of `text` on a terminal, in columns.
std::size_t displayWidth(std::u16string_view text);

/// White space as wide as `text`; tabs stay tabs.
std::u16string blanksUnder(std::u16string_view text);

}  // namespace kx
