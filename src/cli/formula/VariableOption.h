#pragma once

#include <string>

#include "host/KxJsVariable.h"

namespace kx {

/// The options of `kxjs eval` that bind a variable.
enum class VariableOption { guessed, wholeNumber, number, text, boolean };

/// The variable that `assignment`, "NAME=VALUE", describes. The name ends at the first "="; the
/// value is everything after it, blanks included.
///
/// `guessed` reads a whole number of 32 bits as a long, other decimal numbers as a double, "true"
/// and "false" as a boolean, and everything else as a string.
///
/// Throws UsageError with the text of `assignment` where "=" or the name is missing, where the
/// value does not have the type, and for invalid UTF-8.
KxJsVariable parseVariable(VariableOption option, std::string const& assignment);

}  // namespace kx
