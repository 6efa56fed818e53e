/// @file
/// JavaScript's conversions between values. What is empty, or false where the answer is not the
/// result itself, is left to V8.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "expression/Expression.h"
#include "native/TextArena.h"
#include "native/Value.h"

namespace kx {

bool isTrue(Value const& value);

/// As the conversion of a text does it: plain decimals, blanks, and what is no number for sure.
std::optional<double> textToNumber(std::u16string_view text);

inline std::optional<double> toNumber(Value const& value) {
    if (value.isText()) return textToNumber(value.text());
    // That of null is 0.
    return value.isUndefined() ? std::numeric_limits<double>::quiet_NaN() : value.number;
}

/// The number's whole part, 0 for NaN.
inline double wholePart(double number) { return std::isnan(number) ? 0 : std::trunc(number); }

/// toNumber() and wholePart() of it.
inline std::optional<double> toWholeNumber(Value const& value) {
    if (value.isNumber()) return wholePart(value.number);
    auto const number = toNumber(value);
    return number ? std::optional(wholePart(*number)) : std::nullopt;
}

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
/// `result` may be `left`.
bool calculate(Operation operation, Value const& left, Value const& right, TextArena& arena,
               Value& result);

}  // namespace kx
