#pragma once

#include <cstdint>

namespace kx::translate {

/// The number of a day in the Gregorian calendar as the run-time part counts: 2000-01-01 is
/// 2451545. Zero for an impossible date; years are 1 to 9999.
std::int32_t dayNumber(int year, int month, int day);

}  // namespace kx::translate
