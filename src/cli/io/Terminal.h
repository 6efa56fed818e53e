#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kx {

/// Breaks `text` at blanks so that no line is longer than `width` characters, unless a single word
/// is; 0 stands for no limit. Every line after the first starts with `indent` blanks, which count,
/// and the first is taken to start in column `indent` as well.
std::u16string wrap(std::u16string_view text, std::size_t indent, std::size_t width);

/// The width to write for: COLUMNS where it is set to a number, the terminal's width where standard
/// output is one, else 0 (no limit), so that other programs get whole lines.
std::size_t outputWidth();

}  // namespace kx
