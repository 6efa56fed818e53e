#pragma once

#include <windows.h>

namespace kx {

/// The bounds of the calling thread's stack.
struct StackLimits {
    void* low = nullptr;
    void* high = nullptr;

    StackLimits() {
        GetCurrentThreadStackLimits(reinterpret_cast<ULONG_PTR*>(&low),
                                    reinterpret_cast<ULONG_PTR*>(&high));
    }
};

}  // namespace kx
