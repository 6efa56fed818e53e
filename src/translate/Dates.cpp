#include "translate/Dates.h"

#include <chrono>

namespace kx::translate {

std::int32_t dayNumber(int year, int month, int day) {
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1) return 0;
    auto const date = std::chrono::year(year) / month / day;
    if (!date.ok()) return 0;
    constexpr int kDayOf1970 = 2440588;
    auto const sinceEpoch = std::chrono::sys_days(date).time_since_epoch();
    return static_cast<std::int32_t>(sinceEpoch.count()) + kDayOf1970;
}

}  // namespace kx::translate
