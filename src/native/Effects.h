#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "expression/Expression.h"

namespace kx {

/// The names that a formula reads as values: those of called functions, and of Math, Number and
/// String before a point, are not among them.
///
/// Where all of them stand for plain values, or for nothing, evaluating the formula in a new host's
/// context has no effect that another formula could see, but for what its regular expressions
/// match. That holds for a formula that throws, too. Functions are no plain values: a conversion to
/// text calls them.
///
/// Empty where the formula may have effects whatever the names stand for.
std::optional<std::vector<std::u16string_view>> namesReadWithoutEffects(
    Expression const& expression);

/// Whether the value can be no text, whatever the names in it stand for.
bool isNeverText(Expression const& expression, Node const& node);

/// Whether `name` is a member of Math, Number, texts, numbers or truth values that is harmless to
/// call.
bool isHarmlessMember(std::u16string_view name);

}  // namespace kx
