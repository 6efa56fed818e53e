#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace kx {

/// The error text of a script that ran longer than `limit`.
std::u16string timeLimitText(std::chrono::milliseconds limit);

/// The error text of a script that was ended by KxJsParser::terminate().
inline constexpr std::u16string_view kTerminatedText = u"The script was ended: it was terminated";

}  // namespace kx
