#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "convert/Symbol.h"

namespace kx {

/// The alphabet of function names: letters without regard to case, digits and the underscore. Each
/// has a number from 1 on; 0 stands for every other unit. `CallIndex` uses the numbers to choose
/// the next node of its tree.
inline constexpr std::size_t kFunctionNameAlphabetSize = 1 + 26 + 10 + 1;

inline constexpr auto kFunctionNameLetters = [] {
    std::array<std::uint8_t, 128> numbers{};
    std::uint8_t next = 1;
    for (char16_t unit = u'A'; unit <= u'Z'; ++unit) {
        numbers[smallOf(unit)] = numbers[unit] = next++;
    }
    for (char16_t unit = u'0'; unit <= u'9'; ++unit) numbers[unit] = next++;
    numbers[u'_'] = next;
    return numbers;
}();

constexpr std::uint8_t functionNameLetter(char16_t unit) {
    return unit < 128 ? kFunctionNameLetters[unit] : 0;
}

}  // namespace kx
