#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kx {

/// Breaks `text` at blanks into lines of at most `width` characters; longer words stay whole. 0
/// means no limit. Every line after the first starts with `indent` blanks. The first line is
/// assumed to start in column `indent` too.
std::u16string wrap(std::u16string_view text, std::size_t indent, std::size_t width);

/// The width of the output: COLUMNS where it is a number, else the terminal's width, else 0, which
/// means no limit: other programs get unbroken lines.
std::size_t outputWidth();

}  // namespace kx
