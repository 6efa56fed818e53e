#pragma once

#include <windows.h>

namespace kx {

/// The bounds of the calling thread's stack.
struct StackLimits {
    void const* low;
    void const* high;

    StackLimits() {
        ULONG_PTR lowest = 0;
        ULONG_PTR highest = 0;
        GetCurrentThreadStackLimits(&lowest, &highest);
        low = reinterpret_cast<void const*>(lowest);
        high = reinterpret_cast<void const*>(highest);
    }
};

}  // namespace kx
