#pragma once

#include <v8.h>

namespace kx {

/// Whether formulas that call built-in functions can be run out of their place: the built-in
/// functions, and what they take from the engine, are what they were made, and nothing that scripts
/// have declared with let, const or class stands in front of them. Looks at every name, so it is
/// asked for only where scripts have run since. `libraryId` is the engine's number of the script
/// that defines the built-in functions. The context must be entered.
bool areBuiltInsUntouched(v8::Local<v8::Context> context, int libraryId);

}  // namespace kx
