#pragma once

#include <string>
#include <string_view>

namespace kx::translate {

/// An expression of the older language that gives a text and that the exact conversion leaves as it
/// is: one literal, or several joined.
std::u16string safeText(std::u16string_view text);

}  // namespace kx::translate
