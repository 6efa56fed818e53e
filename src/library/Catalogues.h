#pragma once

#include <vector>

#include "library/Export.h"
#include "library/KxJsFunction.h"

/// The built-in functions, one list per catalogue. Every call builds a new list that the caller
/// owns; nothing is shared, so any thread may call. Every record is complete.
///
///     for (KxJsFunction const& function : buildMathFunctions()) show(function.getName());
KXJS_API std::vector<KxJsFunction> buildMathFunctions();    ///< 14, "mathematical functions"
KXJS_API std::vector<KxJsFunction> buildStringFunctions();  ///< 40, "String functions"
KXJS_API std::vector<KxJsFunction> buildMiscFunctions();    ///< 9, "miscellaneous functions"
