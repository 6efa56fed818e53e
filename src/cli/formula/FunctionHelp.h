#pragma once

#include <string>
#include <vector>

#include "cli/formula/Catalogue.h"

namespace kx {

/// Prints a line for every function, catalogue by catalogue.
void printFunctions(std::vector<Catalogue> const& catalogues);

/// Prints the texts of one function. `name` is UTF-8, in any letter case. Throws
/// UsageError, with names like it, for a function that does not exist, and for invalid UTF-8.
void printFunction(std::string const& name, std::vector<Catalogue> const& catalogues);

}  // namespace kx
