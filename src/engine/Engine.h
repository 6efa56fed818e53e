#pragma once

#include <atomic>

namespace kx {

/// Starts the engine once per process, unless the application runs it already. Any thread may
/// call. The engine is never stopped: it cannot be started again.
void startEngine();

extern std::atomic<bool> forkedChild;

/// Whether this process was forked from the one that started the engine. The engine's heap did not
/// come along, so nothing of it may be touched: hosts are of no use here, but may be destroyed.
inline bool isForkedChild() { return forkedChild.load(std::memory_order_relaxed); }

}  // namespace kx
