#pragma once

#include <string>
#include <vector>

#include "library/KxJsFunction.h"

namespace kx {

/// A catalogue of functions.
struct Catalogue {
    std::u16string title;
    std::vector<KxJsFunction> functions;
};

/// All built-in functions, in the order of the documentation. Built once.
std::vector<Catalogue> const& builtInCatalogues();

/// The functions that translated formulas call; otherwise the built-in ones. Built once.
std::vector<Catalogue> const& cataloguesOf(bool isTranslated);

/// The form of a call: "NAME(first, second)".
std::u16string signatureOf(KxJsFunction const& function);

/// At most five names that are similar to `name`, the most similar first: a few letters differ, or
/// one name contains the other.
std::vector<std::u16string> namesNear(std::u16string const& name,
                                      std::vector<Catalogue> const& catalogues);

}  // namespace kx
