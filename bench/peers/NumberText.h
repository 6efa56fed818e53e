#pragma once

#include <array>
#include <charconv>
#include <string>

namespace bench {

/// The shortest text of a number, for peers whose own text is not exact. The numbers of the cases
/// are neither so large nor so small that JavaScript would write an exponent.
inline void assignNumber(std::string& text, double number) {
    std::array<char, 32> digits;
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                    std::chars_format::fixed)
                          .ptr;
    text.assign(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

}  // namespace bench
