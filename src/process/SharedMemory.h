#pragma once

#include <cstddef>

#include "process/OwnedDescriptor.h"

namespace kx {

/// Memory that two processes share. Its size is sealed: neither side can shrink it under the other,
/// which would end the other with SIGBUS.
class SharedMemory {
  public:
    /// Makes and maps new memory, zeroed. Throws std::system_error.
    static SharedMemory create(std::size_t bytes);
    /// Maps what another process has made. Throws std::system_error, also where the memory has
    /// another size or lacks the seals.
    static SharedMemory open(OwnedDescriptor descriptor, std::size_t bytes);

    SharedMemory(SharedMemory&& other) noexcept;
    SharedMemory& operator=(SharedMemory&&) = delete;
    SharedMemory(SharedMemory const&) = delete;
    SharedMemory& operator=(SharedMemory const&) = delete;
    ~SharedMemory();

    std::byte* data() const { return data_; }
    std::size_t size() const { return size_; }
    /// For handing the memory over. It is not needed for the mapping.
    int descriptor() const { return descriptor_.get(); }
    OwnedDescriptor takeDescriptor() { return std::move(descriptor_); }

  private:
    SharedMemory(OwnedDescriptor descriptor, std::size_t bytes);

    OwnedDescriptor descriptor_;
    std::byte* data_;
    std::size_t size_;
};

}  // namespace kx
