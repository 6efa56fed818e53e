#pragma once

#include <atomic>
#include <climits>
#include <cstdint>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace kx {

/// Sleeps while `word`, in memory that processes share, has the value `seen`. Returns for no reason
/// at times.
inline void waitForChange(std::atomic<std::uint32_t>& word, std::uint32_t seen) {
    syscall(SYS_futex, &word, FUTEX_WAIT, seen, nullptr, nullptr, 0);
}

inline void wakeAll(std::atomic<std::uint32_t>& word) {
    syscall(SYS_futex, &word, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
}

}  // namespace kx
