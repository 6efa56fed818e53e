#pragma once

#include <cstdint>

#include "library/Export.h"

namespace kx {

/// The stack of the calling thread: addresses, `low` is where it ends when it grows.
struct StackBounds {
    std::uintptr_t low = 0;
    std::uintptr_t high = 0;
};

/// Tells the engine module the bounds of the calling thread's stack, before the thread makes its
/// first script host. Only needed where the C library cannot know them, as in a process whose
/// threads another runtime has made. Both null takes the report back.
KXJS_API void setThreadStackBounds(void const* low, void const* high);

/// The reported bounds, or those that the C library knows. Both 0 where they are unknown.
StackBounds threadStackBounds();

/// The address beyond which scripts must not grow the stack. Some stack is left below it for V8's
/// C++ code, which V8 does not check against the limit. 0 where the bounds are unknown.
std::uintptr_t scriptStackLimit(StackBounds bounds);

}  // namespace kx
