#pragma once

#include <atomic>

namespace kx {

/// Starts V8 once per process, unless the application runs it already. Any thread may
/// call. V8 is never stopped: it cannot be started again.
void startEngine();

extern std::atomic<bool> forkedChild;

/// Whether this process was forked from the one that started V8. V8's heap is not inherited, so
/// nothing in it may be touched: hosts cannot be used here, only destroyed.
inline bool isForkedChild() { return forkedChild.load(std::memory_order_relaxed); }

}  // namespace kx
