#pragma once

#include <string_view>

namespace kx {

/// The error texts of columns themselves.
/// @{
inline constexpr std::u16string_view kNotCompiled =
    u"No formula is compiled for these columns, or the script host was reset since";
inline constexpr std::u16string_view kStopped = u"The evaluation was stopped";
inline constexpr std::u16string_view kBusy = u"These columns are being evaluated";
/// @}

}  // namespace kx
