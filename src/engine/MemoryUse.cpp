#include "engine/MemoryUse.h"

#include <algorithm>

namespace kx {

namespace {

/// Unused parts of pages that are not worth a collection: a heap at work always has some.
constexpr std::size_t kScattered = std::size_t{64} << 20;

/// What an `Intl` object takes outside the heap, for each handle that V8 has for it. A
/// DateTimeFormat is the largest, with 57 KB behind three handles; most others take less than 10
/// KB.
constexpr std::size_t kBehindHandle = std::size_t{20} << 10;

/// The size of a handle in V8's statistics.
constexpr std::size_t kHandleSize = 32;

}  // namespace

std::size_t MemoryUse::bytes() const {
    v8::HeapStatistics statistics;
    own_.isolate()->GetHeapStatistics(&statistics);
    if (!isComplete()) return statistics.used_heap_size();
    std::size_t const handles = statistics.used_global_handles_size() / kHandleSize;
    std::size_t const foreign = handles - std::min(handles, own_.count());
    return statistics.used_heap_size() + allocator_->bytesInUse() + foreign * kBehindHandle;
}

bool MemoryUse::isScattered(std::size_t few) const {
    v8::HeapStatistics statistics;
    own_.isolate()->GetHeapStatistics(&statistics);
    std::size_t const unused = statistics.total_heap_size() - statistics.used_heap_size();
    return unused > std::max({kScattered, few, 2 * statistics.used_heap_size()});
}

}  // namespace kx
