#pragma once

#include <string>
#include <utility>
#include <vector>

#include "library/KxJsFunction.h"

namespace kx {

struct Catalogues {
    std::vector<KxJsFunction> mathematical;
    std::vector<KxJsFunction> string;
    std::vector<KxJsFunction> miscellaneous;
};

/// Returns the documentation of all built-in functions as one HTML text, in three sections.
///
/// If `standalone` is set, this is a complete page, otherwise a part to be put into a page. The
/// examples are left out unless `withExample` is set. V8 is not needed. Any number of threads may
/// call at the same time.
std::u16string userDocumentation(bool standalone, bool withExample);

/// Returns a name and a complete HTML page for each built-in function, in the order of the
/// catalogues. V8 is not needed. Any number of threads may call at the same time.
std::vector<std::pair<std::u16string, std::u16string>> userDocumentationPages();

/// The same for other functions. Incomplete records are left out. Two records of the same name get
/// two pages.
/// @{
std::u16string userDocumentation(Catalogues const& catalogues, bool standalone, bool withExample);
std::vector<std::pair<std::u16string, std::u16string>> userDocumentationPages(
    Catalogues const& catalogues);
/// @}

}  // namespace kx
