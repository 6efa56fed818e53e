#pragma once

#include <string_view>

namespace kx {

/// Whether a variable of that name is nothing but a variable to scripts: a plain identifier that is
/// no word or global of JavaScript, no built-in function, and no part of a carrier's name.
/// Assigning to its global changes nothing else.
bool isPlainKey(std::u16string_view key);

}  // namespace kx
