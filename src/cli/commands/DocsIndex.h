#pragma once

#include <string>
#include <vector>

#include "cli/formula/Catalogue.h"

namespace kx {

/// The HTML page with links to the pages of all documented functions.
std::u16string docsIndexPage(std::vector<Catalogue> const& catalogues);

/// All functions as one HTML document, or as a part of one.
std::u16string docsDocument(std::vector<Catalogue> const& catalogues, bool isStandalone,
                            bool hasExamples);

/// The file name of the page of the function `name`.
std::u16string docsPageFile(std::u16string const& name);

}  // namespace kx
