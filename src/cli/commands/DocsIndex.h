#pragma once

#include <string>

namespace kx {

/// The HTML page with links to the pages of all documented functions.
std::u16string docsIndexPage();

/// The file name of the page of the function `name`.
std::u16string docsPageFile(std::u16string const& name);

}  // namespace kx
