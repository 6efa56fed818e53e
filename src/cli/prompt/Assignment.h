#pragma once

#include <optional>
#include <string>

#include "host/KxJsVariable.h"

namespace kx {

/// A line that assigns a value to a variable: "NAME = VALUE".
struct Assignment {
    std::u16string name;
    std::u16string value;  ///< without white space around it
};

/// The assignment on `line`; nothing where the line is a formula, such as "A == B" or "A => B".
std::optional<Assignment> assignmentFrom(std::u16string const& line);

/// The variable for a literal value: a number, true, false, or a quoted text that contains neither
/// that quote nor a backslash. Nothing for any other value, which is a formula.
std::optional<KxJsVariable> literalVariable(Assignment const& assignment);

/// The variable's name, value and type: "A = 5 (long)".
std::u16string describeVariable(KxJsVariable const& variable);

}  // namespace kx
