#pragma once

#include <string>
#include <string_view>

namespace kx {

/// The text that a browser would show for `html`: character references decoded, and line feeds,
/// tabs and other control characters, which would disturb a terminal, written as escapes ("\n").
/// An unknown or unfinished reference stays as it is.
std::u16string plainTextFromHtml(std::u16string_view html);

}  // namespace kx
