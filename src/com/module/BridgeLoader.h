#pragma once

#include <windows.h>

#include "com/Bridge.h"

namespace kx {

/// Returns the table of the bridge beside this module, which it loads at the first call.
/// Fails with the loader's error where the bridge or the library behind it is missing.
///
/// The bridge stays loaded when this module goes: V8 behind it can be started only once
/// in a process, so a module that is loaded again must find the same one. Any thread may call.
HRESULT loadBridge(Bridge const** bridge);

}  // namespace kx
