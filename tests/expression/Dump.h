#pragma once

#include <string>
#include <string_view>

#include "expression/Expression.h"

/// The tree as nested parentheses, such as "(+ A (* 2 B))".
std::u16string dump(kx::Expression const& expression);

/// The tree as JavaScript with parentheses around every operation. Of assignments and arrow
/// functions too.
std::u16string asJavaScript(kx::Expression const& expression);
