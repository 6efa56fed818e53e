#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kx {

/// Makes the C library treat characters as UTF-8, whatever the user's locale: kxjs reads and writes
/// nothing else. Numbers and messages are left alone.
void useUtf8();

/// The number of columns that `text` takes on a terminal.
std::size_t displayWidth(std::u16string_view text);

/// White space as wide as `text`; tabs stay tabs.
std::u16string blanksUnder(std::u16string_view text);

}  // namespace kx
