/// @file
/// JavaScript's conversions between values. What is empty, or false where the answer is not the
/// result itself, is left to V8.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "expression/Expression.h"
#include "native/TextArena.h"
#include "native/Value.h"

namespace kx {

bool isTrue(Value const& value);

std::optional<double> toNumber(Value const& value);

/// As the conversion of a text does it: plain decimals, blanks, and what is no number for sure.
std::optional<double> textToNumber(std::u16string_view text);

/// The number's whole part, 0 for NaN.
double wholePart(double number);

/// toNumber() and wholePart() of it.
std::optional<double> toWholeNumber(Value const& value);

std::int32_t toInt32(double number);

/// Empty where the arena is full.
std::optional<std::u16string_view> toText(Value const& value, TextArena& arena);

std::optional<std::u16string_view> joined(std::u16string_view left, std::u16string_view right,
                                          TextArena& arena);

/// "==" and "===".
/// @{
std::optional<bool> areEqual(Value const& left, Value const& right);
bool areStrictlyEqual(Value const& left, Value const& right);
/// @}

/// `operation` is one of the four comparisons by size.
std::optional<bool> compare(Operation operation, Value const& left, Value const& right);

/// A binary operation but those that choose an operand ("&&", "||", "??", ",").
bool calculate(Operation operation, Value const& left, Value const& right, TextArena& arena,
               Value& result);

}  // namespace kx
