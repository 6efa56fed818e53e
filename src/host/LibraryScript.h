#pragma once

#include <string>
#include <vector>

#include <v8.h>

#include "host/IsolateRecord.h"
#include "library/KxJsFunction.h"

namespace kx {

/// The JavaScript text that defines functions: the mathematical, then the string records, the
/// prelude, then the miscellaneous records, complete ones only, with nothing between them.
std::u16string assembleLibrary(std::vector<KxJsFunction> const& math,
                               std::vector<KxJsFunction> const& string,
                               std::vector<KxJsFunction> const& misc);

/// The text of the built-in functions. Made once per process.
std::u16string const& libraryText();

/// Defines the built-in functions in the entered context. Returns false where not all of them could
/// be defined: a limit has ended it, the stack is nearly used up, or scripts have locked the
/// context's globals. The exception is left to the caller's v8::TryCatch.
bool installLibrary(IsolateRecord& record, v8::Local<v8::Context> context);

}  // namespace kx
