#pragma once

#include <string>
#include <string_view>

#include "library/KxJsFunction.h"

namespace kx {

/// `text` with "<br/>" for every carriage return and line feed that stand together; single ones
/// stay. Nothing else is escaped: the functions' texts are HTML.
std::u16string withLineBreaks(std::u16string_view text);

/// The names of the parameters with `separator` between them.
std::u16string joinParameterNames(KxJsFunction const& function, std::u16string_view separator);

}  // namespace kx
