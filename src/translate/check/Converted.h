#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "expression/Expression.h"

namespace kx::translate {

/// What the exact conversion makes of a formula.
struct Converted {
    std::u16string javaScript;
    /// Whether it compiles as a script.
    bool compiles = false;
    /// Whether it is too large to be looked at.
    bool isTooLarge = false;
    /// What it means, where it compiles and is an expression.
    std::optional<Expression> expression;
};

Converted convertFormula(std::u16string_view formula);

/// Letters beyond those that trees of JavaScript know, each as another one.
std::u16string withKnownLetters(std::u16string_view text);

}  // namespace kx::translate
