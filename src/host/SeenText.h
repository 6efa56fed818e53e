#pragma once

#include <string_view>

#include "host/KxJsVariable.h"

namespace kx {

/// Of a text, the units that scripts may see, and what they see of it: up to its first zero.
/// @{
inline std::u16string_view firstUnits(std::u16string_view text) {
    return text.substr(0, KxJsVariable::kMaxTextLength);
}
inline std::u16string_view seenText(std::u16string_view text) {
    text = firstUnits(text);
    return text.substr(0, text.find(u'\0'));
}
/// @}

}  // namespace kx
