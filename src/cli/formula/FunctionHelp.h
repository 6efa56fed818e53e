#pragma once

#include <string>

namespace kx {

/// Prints a line for every built-in function, catalogue by catalogue.
void printFunctions();

/// Prints the texts of one built-in function. `name` is UTF-8, in any letter case. Throws
/// UsageError, with names like it, for a function that does not exist, and for invalid UTF-8.
void printFunction(std::string const& name);

}  // namespace kx
