#pragma once

namespace kx {

/// Whether `unit` is one of the digits 0 to 9. Other digits of Unicode are none.
constexpr bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

constexpr bool isHexadecimal(char16_t unit) {
    return isDigit(unit) || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

}  // namespace kx
