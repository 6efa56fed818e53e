#pragma once

#include <string_view>

#include "host/KxJsVariable.h"

namespace kx {

/// firstUnits() is as much of a text as scripts may see; seenText() is what they see, which also
/// ends at the first zero.
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
