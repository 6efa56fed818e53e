#pragma once

#include <cstddef>

#include <v8.h>

#include "engine/CountingAllocator.h"
#include "engine/PersistentHandle.h"

namespace kx {

/// Measures the memory that scripts use in one isolate: V8's heap, array buffers, and what `Intl`
/// objects take outside both. V8 does not tell the last, so each of its handles to such an object
/// counts with a fixed size.
class MemoryUse {
  public:
    /// `own` are the library's handles, which are not counted. `allocator` counts array buffers; it
    /// is null in an isolate of the application, where only the heap is measured.
    MemoryUse(OwnHandles const& own, CountingAllocator const* allocator)
        : own_(own), allocator_(allocator) {}

    /// Bytes in use. Garbage counts until it is collected.
    std::size_t bytes() const;

    /// Whether little in use keeps many pages of the heap, more than `few` bytes of them unused.
    /// Ordinary collections leave them; critical ones move what is in use together.
    bool isScattered(std::size_t few) const;

    /// Collects all garbage, in several full collections: what a finalizer releases is only found
    /// by the next one.
    void collectAll() const { own_.isolate()->LowMemoryNotification(); }

    /// Whether all that scripts use is measured.
    bool isComplete() const { return allocator_ != nullptr; }

  private:
    OwnHandles const& own_;
    CountingAllocator const* const allocator_;
};

}  // namespace kx
