#include "FailingNew.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <execinfo.h>
#include <link.h>
#include <new>

namespace {

struct Range {
    std::uintptr_t low = 0;
    std::uintptr_t high = 0;
    bool holds(void const* address) const {
        auto const position = reinterpret_cast<std::uintptr_t>(address);
        return position >= low && position < high;
    }
};

Range rangeOf(char const* library) {
    struct Search {
        char const* name;
        Range found;
    } search{library, {}};
    dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* data) {
            auto& wanted = *static_cast<Search*>(data);
            if (std::strstr(info->dlpi_name, wanted.name) == nullptr) return 0;
            for (int i = 0; i < info->dlpi_phnum; ++i) {
                auto const& part = info->dlpi_phdr[i];
                if (part.p_type != PT_LOAD || (part.p_flags & PF_X) == 0) continue;
                wanted.found.low = info->dlpi_addr + part.p_vaddr;
                wanted.found.high = wanted.found.low + part.p_memsz;
            }
            return 1;
        },
        &search);
    return search.found;
}

// Per thread: the watchdog's own must not be taken for the caller's.
thread_local std::size_t remaining = 0;  // 0: not counting
thread_local bool isLooking = false;
thread_local bool failed = false;

/// Whether the first caller beyond this file and the standard library is code of the library.
bool isOurs() {
    static Range const library = rangeOf("libKxJsParser");
    static Range const standard = rangeOf("libstdc++");
    std::array<void*, 24> frames;
    int const count = backtrace(frames.data(), static_cast<int>(frames.size()));
    for (int i = 0; i < count; ++i) {
        if (library.holds(frames.at(static_cast<std::size_t>(i)))) return true;
        // Frames 0 to 2 are these functions.
        if (i > 2 && !standard.holds(frames.at(static_cast<std::size_t>(i)))) return false;
    }
    return false;
}

bool failsNow() {
    if (remaining == 0 || isLooking) return false;
    isLooking = true;
    bool const counts = isOurs();
    isLooking = false;
    if (!counts || --remaining > 0) return false;
    failed = true;
    return true;
}

[[gnu::noinline]] void* allocate(std::size_t size, std::size_t alignment = 0) {
    if (failsNow()) return nullptr;
    if (size == 0) size = 1;
    if (alignment <= alignof(std::max_align_t)) return std::malloc(size);
    return std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
}

void* orThrow(void* memory) {
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace

FailingNew::FailingNew(std::size_t which) {
    failed = false;
    remaining = which;
}

FailingNew::~FailingNew() { remaining = 0; }

bool FailingNew::hasFailed() { return failed; }

void* operator new(std::size_t size) { return orThrow(allocate(size)); }
void* operator new[](std::size_t size) { return orThrow(allocate(size)); }
void* operator new(std::size_t size, std::nothrow_t const&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept { return allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return orThrow(allocate(size, static_cast<std::size_t>(alignment)));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return orThrow(allocate(size, static_cast<std::size_t>(alignment)));
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::nothrow_t const&) noexcept { std::free(memory); }
void operator delete[](void* memory, std::nothrow_t const&) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
