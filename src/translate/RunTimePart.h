#pragma once

#include <string>
#include <string_view>

namespace kx::translate {

/// The script that puts the run-time part into a context.
std::u16string const& runTimePart();

/// Whether `script` is that one.
bool isRunTimePart(std::u16string_view script);

}  // namespace kx::translate
