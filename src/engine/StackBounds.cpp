#include "engine/StackBounds.h"

#include <algorithm>
#include <pthread.h>

namespace kx {

namespace {

// What V8's C++ code, and callbacks into this library, may use below the limit.
constexpr std::uintptr_t kReserve = std::uintptr_t{160} * 1024;

// A thread with an unlimited stack still ends a recursion within reasonable time.
constexpr std::uintptr_t kLargestStack = std::uintptr_t{8} * 1024 * 1024;

thread_local StackBounds reportedBounds;

}  // namespace

void setThreadStackBounds(void const* low, void const* high) {
    reportedBounds.low = reinterpret_cast<std::uintptr_t>(low);
    reportedBounds.high = reinterpret_cast<std::uintptr_t>(high);
}

StackBounds threadStackBounds() {
    if (reportedBounds.high != 0) return reportedBounds;
    StackBounds bounds;
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return bounds;
    void* low = nullptr;
    std::size_t size = 0;
    if (pthread_attr_getstack(&attributes, &low, &size) == 0) {
        bounds.low = reinterpret_cast<std::uintptr_t>(low);
        bounds.high = bounds.low + size;
    }
    pthread_attr_destroy(&attributes);
    return bounds;
}

std::uintptr_t scriptStackLimit(StackBounds bounds) {
    if (bounds.high <= bounds.low) return 0;
    std::uintptr_t const size = bounds.high - bounds.low;
    if (size > kLargestStack) return bounds.high - kLargestStack + kReserve;
    // Half of a small stack: too little to run much, but never beyond its end.
    return bounds.low + std::min(kReserve, size / 2);
}

}  // namespace kx
