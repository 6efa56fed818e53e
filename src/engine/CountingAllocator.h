#pragma once

#include <atomic>
#include <cstddef>
#include <memory>

#include <v8.h>

namespace kx {

/// Allocates the memory of array buffers, which is outside V8's heap, and counts it. A buffer that
/// would exceed the limit is refused: scripts get a RangeError.
class CountingAllocator : public v8::ArrayBuffer::Allocator {
  public:
    virtual std::size_t bytesInUse() const = 0;
    virtual void setLimit(std::size_t bytes) = 0;
};

std::unique_ptr<CountingAllocator> makeCountingAllocator(std::size_t limit);

}  // namespace kx
