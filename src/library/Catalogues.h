/// @file
/// The built-in functions, in one list for each catalogue.
///
/// The lists are in the order in which documentation shows the functions. Every record in them is
/// complete. Each call builds a new list, which the caller owns and may change.
///
///     for (KxJsFunction const& function : buildMathFunctions()) show(function.getName());
///
/// Errors: std::bad_alloc only. Threads: nothing is shared, so any thread may call at any time.
#pragma once

#include <vector>

#include "library/Export.h"
#include "library/KxJsFunction.h"

/// Returns the functions of the category "mathematical functions", from ROUND to EXP.
KXJS_API std::vector<KxJsFunction> buildMathFunctions();

/// Returns the functions of the category "String functions", from LTRIM to LEN.
KXJS_API std::vector<KxJsFunction> buildStringFunctions();

/// Returns the functions of the category "miscellaneous functions", from IIF to LISTFUNCT.
KXJS_API std::vector<KxJsFunction> buildMiscFunctions();
