#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kx {

/// Values as users write them in options and cells; nothing for any other text. Numbers do not
/// depend on the locale and may have a sign, plus or minus. "inf" and "nan" are no numbers.
/// @{
std::optional<std::int32_t> wholeNumberFrom(std::string_view text);
std::optional<double> numberFrom(std::string_view text);
std::optional<bool> booleanFrom(std::string_view text);
/// @}

}  // namespace kx
