#pragma once

#include <string>

#include "host/KxJsVariable.h"

namespace kx {

/// The options of `kxjs eval` that bind a variable.
enum class VariableOption { GUESS, LONG, DOUBLE, STRING, BOOLEAN };

/// The variable that `assignment`, "NAME=VALUE", describes. The name ends at the first "=", and the
/// value is everything behind it, blanks included.
///
/// GUESS takes a whole number of 32 bits as a long, other decimal numbers as a double, "true" and
/// "false" as a boolean and everything else as a string.
///
/// Throws UsageError that names `assignment` for a missing "=", a missing name, a value that the
/// type does not have, and invalid UTF-8.
KxJsVariable parseVariable(VariableOption option, std::string const& assignment);

}  // namespace kx
