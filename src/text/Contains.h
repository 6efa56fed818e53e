#pragma once

#include <string_view>

namespace kx {

/// Whether `text` contains `unit`. Looks at all of it, several units at a time: faster than a
/// search where nothing is found.
inline bool contains(std::u16string_view text, char16_t unit) {
    bool isFound = false;
    for (char16_t const each : text) isFound |= each == unit;
    return isFound;
}

}  // namespace kx
