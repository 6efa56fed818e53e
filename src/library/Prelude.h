/// @file
/// The JavaScript that every context runs in addition to the built-in functions.
#pragma once

#include <string>
#include <vector>

#include "library/Export.h"

/// Returns the statements of the prelude in order. Each is one line and ends in a line feed.
///
/// The prelude defines the methods ltrim, rtrim, trim, left and right of strings, which the bodies
/// of built-in functions call. It also replaces Function.prototype.toString: a function that is
/// converted to text is called, and its result is converted instead. Every context runs the prelude
/// behind the string functions and before the miscellaneous ones.
///
///     for (std::u16string const& statement : buildPrelude()) script += statement;
///
/// Errors: std::bad_alloc only. Threads: nothing is shared, so any thread may call at any time.
KXJS_API std::vector<std::u16string> buildPrelude();
