#pragma once

#include <optional>
#include <string>

#include "host/KxJsVariable.h"

namespace kx {

/// A line of the prompt that gives a variable a value, "NAME = VALUE".
struct Assignment {
    std::u16string name;
    std::u16string value;  ///< without blanks around it
};

/// Nothing for any other line: "A == B" and "A => B" are formulas.
std::optional<Assignment> assignmentFrom(std::u16string const& line);

/// The variable that a literal describes: a text in quotes without quotes in it, a number, true or
/// false. Nothing for any other value.
std::optional<KxJsVariable> literalVariable(Assignment const& assignment);

/// "A = 5 (long)".
std::u16string describeVariable(KxJsVariable const& variable);

}  // namespace kx
