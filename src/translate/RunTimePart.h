#pragma once

#include <string>

namespace kx::translate {

/// The script that puts the run-time part into a context.
std::u16string const& runTimePart();

}  // namespace kx::translate
