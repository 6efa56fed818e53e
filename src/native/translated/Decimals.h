#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "native/TextArena.h"

namespace kx {

/// Numbers as the older language prints and rounds them: judged on their decimal form with 15
/// significant digits, half away from zero. What is empty is left to V8.
/// @{

/// `number` with so many decimals.
std::optional<std::u16string_view> decimalsOf(double number, std::size_t places, TextArena& arena);

/// The decimals of the shortest form.
std::optional<std::size_t> ownDecimals(double number);

/// Rounded at so many decimals; tens and more where `places` is negative.
std::optional<double> roundedAt(double number, double places);

/// Right-aligned; asterisks where the number is wider.
std::optional<std::u16string_view> inWidth(double number, std::size_t width, std::size_t places,
                                           TextArena& arena);

/// STR without a width: `places` decimals, or its own ones.
std::optional<std::u16string_view> plainNumber(double number, std::optional<std::size_t> places,
                                               TextArena& arena);
/// @}

}  // namespace kx
