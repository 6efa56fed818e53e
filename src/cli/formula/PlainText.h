#pragma once

#include <string>
#include <string_view>

namespace kx {

/// A text of the catalogues, which is HTML, for a terminal: the character references that occur
/// there become characters, and line feeds and tabs become escapes ("\n").
std::u16string plainTextFromHtml(std::u16string_view html);

}  // namespace kx
