#pragma once

#include <string>
#include <vector>

#include "cli/io/Errors.h"

namespace kx {

/// Runs kxjs with `arguments`, the program's name not among them, and returns its exit status.
/// Messages go to standard error; nothing is thrown.
ExitStatus runCommandLine(std::vector<std::string> const& arguments);

}  // namespace kx
