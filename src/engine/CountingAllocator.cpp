// Compiled without run-time type information, which V8's library lacks: a class derived
// from one of V8's would not link otherwise.
#include "engine/CountingAllocator.h"

#include <algorithm>
#include <cstdlib>

namespace kx {

namespace {

class Allocator final : public CountingAllocator {
  public:
    explicit Allocator(std::size_t limit) : limit_(limit) {}

    std::size_t bytesInUse() const override { return inUse_.load(std::memory_order_relaxed); }
    void setLimit(std::size_t bytes) override { limit_.store(bytes, std::memory_order_relaxed); }

    void* Allocate(std::size_t length) override {
        if (!reserve(length)) return nullptr;
        return keepOrRelease(std::calloc(std::max<std::size_t>(length, 1), 1), length);
    }

    void* AllocateUninitialized(std::size_t length) override {
        if (!reserve(length)) return nullptr;
        return keepOrRelease(std::malloc(std::max<std::size_t>(length, 1)), length);
    }

    void Free(void* data, std::size_t length) override {
        std::free(data);
        inUse_.fetch_sub(length, std::memory_order_relaxed);
    }

  private:
    bool reserve(std::size_t length) {
        std::size_t const before = inUse_.fetch_add(length, std::memory_order_relaxed);
        std::size_t const limit = limit_.load(std::memory_order_relaxed);
        if (before <= limit && length <= limit - before) return true;
        inUse_.fetch_sub(length, std::memory_order_relaxed);
        return false;
    }

    void* keepOrRelease(void* data, std::size_t length) {
        if (data == nullptr) inUse_.fetch_sub(length, std::memory_order_relaxed);
        return data;
    }

    std::atomic<std::size_t> inUse_ = 0;
    std::atomic<std::size_t> limit_;
};

}  // namespace

std::unique_ptr<CountingAllocator> makeCountingAllocator(std::size_t limit) {
    return std::make_unique<Allocator>(limit);
}

}  // namespace kx
