#pragma once

#include <string>
#include <vector>

#include "library/KxJsFunction.h"

namespace kx {

/// One of the three catalogues of built-in functions.
struct Catalogue {
    std::u16string title;
    std::vector<KxJsFunction> functions;
};

/// All built-in functions, in the order in which they are documented everywhere. Made once.
std::vector<Catalogue> const& builtInCatalogues();

/// How a call is written: "NAME(first, second)".
std::u16string signatureOf(KxJsFunction const& function);

/// The names that someone who wrote `name` may have meant, the nearest first, at most five: a few
/// letters differ, or one name contains the other.
std::vector<std::u16string> namesNear(std::u16string const& name,
                                      std::vector<Catalogue> const& catalogues);

}  // namespace kx
