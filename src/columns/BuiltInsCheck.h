#pragma once

#include <v8.h>

namespace kx {

/// Whether a kernel may call the built-in functions: they, and what they use of V8, are as they
/// were made, and no let, const or class of a script hides them. Looks at every name, so it is
/// asked only where scripts have run since. `libraryId` is V8's number of the script that defines
/// the built-in functions. The context must be entered.
bool areBuiltInsUntouched(v8::Local<v8::Context> context, int libraryId);

}  // namespace kx
