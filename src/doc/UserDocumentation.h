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

/// All built-in functions on one page: three headings with the functions' fragments below.
/// `standalone` makes it a document with head and body tags, otherwise it is made to be put into
/// another page. `withExample` adds the examples. Needs no engine; any number of threads may call.
std::u16string userDocumentation(bool standalone, bool withExample);

/// One page for each built-in function: its name and its page, in the catalogues' order.
/// Needs no engine; any number of threads may call.
std::vector<std::pair<std::u16string, std::u16string>> userDocumentationPages();

/// The same for any functions. Incomplete records are left out; a name that occurs twice has two
/// pages.
std::u16string userDocumentation(Catalogues const& catalogues, bool standalone, bool withExample);
std::vector<std::pair<std::u16string, std::u16string>> userDocumentationPages(
    Catalogues const& catalogues);

}  // namespace kx
