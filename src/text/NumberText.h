#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace kx {

/// The text of a number as JavaScript's own conversion writes it, unit by unit.
///
/// Made without V8, which allocates and caches a string object for every number on the way.
std::u16string numberToText(double number);

/// The same, written to `target`, which must hold kLongestNumberText units. Returns their number.
/// @{
constexpr std::size_t kLongestNumberText = 32;
std::size_t writeNumber(double number, char16_t* target);
/// @}

/// The decimal digits of a whole number.
std::u16string decimalText(std::int64_t number);

}  // namespace kx
