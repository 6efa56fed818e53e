/// @file
/// What the functions of the run-time part have in common. A function that answers false is left to
/// V8, which gives its error text.
#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <span>

#include "native/FunctionTable.h"
#include "native/Functions.h"

namespace kx {

using Arguments = std::span<Value const>;

/// The whole part of a number; empty for other values, and for what has none.
inline std::optional<double> wholeOf(Value const& value) {
    if (!value.isNumber() || !std::isfinite(value.number)) return std::nullopt;
    return std::trunc(value.number);
}

inline std::optional<double> wholeOr(Value const& value, double otherwise) {
    return value.isNullish() ? otherwise : wholeOf(value);
}

/// A number from 0 to `most`.
inline std::size_t limitedTo(double number, std::size_t most) {
    if (number <= 0) return 0;
    return number < static_cast<double>(most) ? static_cast<std::size_t>(number) : most;
}

inline bool giveFinite(double number, Value& result) {
    return std::isfinite(number) && give(number, result);
}

/// A copy of `text` that lives as long as the evaluation.
inline bool giveCopy(std::u16string_view text, TextArena& arena, Value& result) {
    char16_t* const room = arena.allocate(text.size());
    if (room == nullptr) return false;
    text.copy(room, text.size());
    return give(std::u16string_view(room, text.size()), result);
}

}  // namespace kx
