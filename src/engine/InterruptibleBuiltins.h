#pragma once

#include <v8.h>

namespace kx {

/// Has to be called once, before a context is made with interruptibleBuiltins().
void registerInterruptibleBuiltins();

/// For contexts in which a call to a built-in function ends with the run that makes it. V8's
///  own functions look for a request to end, if at all, where they call a script, and end
/// the process where their tables overflow: of arrays or texts so long that this matters, scripts
/// see functions with the same results that go step by step (interruptible/*.js).
v8::ExtensionConfiguration* interruptibleBuiltins();

}  // namespace kx
