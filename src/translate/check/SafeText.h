#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kx::translate {

/// The conversion puts blanks behind parentheses that it takes for those of a call, also in texts.
enum class Parentheses : std::uint8_t { written, coded };

/// An expression of the older language that gives a text and that the exact conversion leaves as it
/// is: one literal, or several joined.
std::u16string safeText(std::u16string_view text, Parentheses parentheses);

}  // namespace kx::translate
