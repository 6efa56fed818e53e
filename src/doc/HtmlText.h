#pragma once

#include <string>
#include <string_view>

#include "library/KxJsFunction.h"

namespace kx {

/// Returns `text` with "<br/>" in place of every pair of a carriage return and a line feed. Single
/// ones stay. Nothing is escaped, as the texts of functions are HTML.
std::u16string withLineBreaks(std::u16string_view text);

/// Returns the names of the parameters with `separator` between them.
std::u16string joinParameterNames(KxJsFunction const& function, std::u16string_view separator);

}  // namespace kx
