/// @file
/// What every context runs beside the built-in functions.
#pragma once

#include <string>
#include <vector>

#include "library/Export.h"

/// The six JavaScript statements that stand between the string and the miscellaneous functions in
/// every context: the string methods that the functions' bodies call, and the replacement of
/// Function.prototype.toString. Each ends in a line feed.
///
///     for (std::u16string const& statement : buildPrelude()) script += statement;
///
/// Errors: std::bad_alloc only. Threads: nothing is shared; any thread may call.
KXJS_API std::vector<std::u16string> buildPrelude();
