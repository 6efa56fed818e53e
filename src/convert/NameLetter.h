#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "convert/Symbol.h"

namespace kx {

/// What names of functions consist of, numbered: letters, a small one as its capital, digits and
/// the underscore. 0 is everything else.
inline constexpr std::size_t nameLetterCount = 1 + 26 + 10 + 1;

inline constexpr auto nameLetters = [] {
    std::array<std::uint8_t, 128> numbers{};
    std::uint8_t next = 1;
    for (char16_t unit = u'A'; unit <= u'Z'; ++unit)
        numbers[smallOf(unit)] = numbers[unit] = next++;
    for (char16_t unit = u'0'; unit <= u'9'; ++unit) numbers[unit] = next++;
    numbers[u'_'] = next;
    return numbers;
}();

constexpr std::uint8_t nameLetterOf(char16_t unit) { return unit < 128 ? nameLetters[unit] : 0; }

}  // namespace kx
