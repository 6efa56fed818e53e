/// @file
/// What the functions of the run-time part have in common. A function that answers false is left to
/// V8, which gives its error text.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "native/FunctionEntries.h"
#include "native/Functions.h"

namespace kx {

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
    return std::isfinite(number) && setResult(number, result);
}

/// White space of the older language.
inline constexpr std::u16string_view kWhiteSpace = u" \t\r\n";

inline std::u16string_view withoutFirstSpace(std::u16string_view text) {
    return text.substr(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
}

inline std::u16string_view withoutLastBlanks(std::u16string_view text) {
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

}  // namespace kx
