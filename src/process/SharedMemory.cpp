#include "process/SharedMemory.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include "process/SystemError.h"

namespace kx {

namespace {

constexpr int kSeals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL;

}  // namespace

SharedMemory SharedMemory::create(std::size_t bytes) {
    OwnedDescriptor descriptor(memfd_create("kxjs", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!descriptor) throwSystemError("memfd_create");
    if (ftruncate(descriptor.get(), static_cast<off_t>(bytes)) != 0) throwSystemError("ftruncate");
    if (fcntl(descriptor.get(), F_ADD_SEALS, kSeals) != 0) throwSystemError("sealing memory");
    return {std::move(descriptor), bytes};
}

SharedMemory SharedMemory::open(OwnedDescriptor descriptor, std::size_t bytes) {
    struct stat status {};
    if (fstat(descriptor.get(), &status) != 0) throwSystemError("fstat");
    int const seals = fcntl(descriptor.get(), F_GET_SEALS);
    if (seals < 0 || (seals & kSeals) != kSeals || status.st_size != static_cast<off_t>(bytes)) {
        errno = EINVAL;
        throwSystemError("memory of a worker");
    }
    return {std::move(descriptor), bytes};
}

SharedMemory::SharedMemory(OwnedDescriptor descriptor, std::size_t bytes)
    : descriptor_(std::move(descriptor)), size_(bytes) {
    void* const address =
        mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor_.get(), 0);
    if (address == MAP_FAILED) throwSystemError("mapping memory");
    data_ = static_cast<std::byte*>(address);
}

SharedMemory::SharedMemory(SharedMemory&& other) noexcept
    : descriptor_(std::move(other.descriptor_)),
      data_(std::exchange(other.data_, nullptr)),
      size_(other.size_) {}

SharedMemory::~SharedMemory() {
    if (data_ != nullptr) munmap(data_, size_);
}

}  // namespace kx
