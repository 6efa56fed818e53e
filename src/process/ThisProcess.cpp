#include "process/ThisProcess.h"

#include <atomic>
#include <cstddef>
#include <sys/mman.h>
#include <unistd.h>

namespace kx {

namespace {

using Known = std::atomic<pid_t>;

constexpr std::size_t kPage = 4096;

/// Memory that the kernel clears in a fork. Null where there is none. Never unmapped.
Known* wipedMemory() {
    // No static object with a guard: a fork could find that locked for ever.
    static std::atomic<Known*> current = nullptr;
    static std::atomic<bool> isRefused = false;
    if (Known* const known = current.load()) return known;
    if (isRefused.load(std::memory_order_relaxed)) return nullptr;
    void* const page =
        mmap(nullptr, kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    bool const isWiped = page != MAP_FAILED && madvise(page, kPage, MADV_WIPEONFORK) == 0;
    Known* known = nullptr;
    if (isWiped && current.compare_exchange_strong(known, static_cast<Known*>(page))) {
        return static_cast<Known*>(page);
    }
    if (!isWiped) isRefused = true;
    if (page != MAP_FAILED) munmap(page, kPage);
    return known;
}

}  // namespace

pid_t thisProcess() {
    Known* const known = wipedMemory();
    if (known == nullptr) return getpid();
    pid_t process = known->load(std::memory_order_relaxed);
    if (process == 0) {
        process = getpid();
        known->store(process, std::memory_order_relaxed);
    }
    return process;
}

}  // namespace kx
