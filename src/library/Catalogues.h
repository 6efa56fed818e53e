/// @file
/// The built-in functions, one list per catalogue.
///
/// Lists are in the order in which documentation shows them, and every record in them is complete.
///
///     for (KxJsFunction const& function : buildMathFunctions()) show(function.getName());
///
/// Errors: std::bad_alloc only. Threads: nothing is shared; any thread may call.
#pragma once

#include <vector>

#include "library/Export.h"
#include "library/KxJsFunction.h"

/// The 14 functions of the category "mathematical functions", in a new list that the caller owns.
KXJS_API std::vector<KxJsFunction> buildMathFunctions();

/// The 40 functions of the category "String functions", in a new list that the caller owns.
KXJS_API std::vector<KxJsFunction> buildStringFunctions();

/// The 9 functions of the category "miscellaneous functions", in a new list that the caller owns.
KXJS_API std::vector<KxJsFunction> buildMiscFunctions();
