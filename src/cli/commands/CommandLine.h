#pragma once

#include <string>
#include <vector>

#include "cli/io/Errors.h"

namespace kx {

/// Runs kxjs with `arguments`, without the program's name, and returns the exit status. Errors are
/// reported on standard error; nothing is thrown.
ExitStatus runCommandLine(std::vector<std::string> const& arguments);

}  // namespace kx
