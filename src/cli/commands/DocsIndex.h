#pragma once

#include <string>

namespace kx {

/// The HTML page that links the pages of all documented functions, in the functions' own style.
std::u16string docsIndexPage();

/// The name of the file that holds the page of the function `name`.
std::u16string docsPageFile(std::u16string const& name);

}  // namespace kx
