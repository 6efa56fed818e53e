#include "engine/MemoryWatch.h"

#include <algorithm>
#include <unistd.h>

namespace kx {

namespace {

constexpr std::size_t kMebibyte = std::size_t{1} << 20;
constexpr std::size_t kLargestDefault = 512 * kMebibyte;

/// A full collection takes long where much is in use, and most of what it does not free it did not
/// free the time before. The next one waits until this part of the allowance has been added.
constexpr std::size_t kPartBeforeNextRequest = 8;

/// What V8 gets when it is about to give up: enough to come to a point where the run can be ended.
constexpr std::size_t kReprieve = 512 * kMebibyte;

}  // namespace

std::size_t defaultMemoryLimit() {
    long const pages = sysconf(_SC_PHYS_PAGES);
    long const pageSize = sysconf(_SC_PAGESIZE);
    if (pages <= 0 || pageSize <= 0) return kLargestDefault;
    return std::min(kLargestDefault,
                    static_cast<std::size_t>(pages) / 4 * static_cast<std::size_t>(pageSize));
}

MemoryWatch::MemoryWatch(OwnHandles const& own, CountingAllocator* allocator, std::size_t limit)
    : isolate_(own.isolate()), allocator_(allocator), use_(own, allocator), policy_(use_, limit) {
    isolate_->AddGCEpilogueCallback(afterCollection, this);
    isolate_->AddNearHeapLimitCallback(nearHardLimit, this);
}

MemoryWatch::~MemoryWatch() {
    if (isolate_ == nullptr) return;
    isolate_->RemoveGCEpilogueCallback(afterCollection, this);
    isolate_->RemoveNearHeapLimitCallback(nearHardLimit, 0);
}

void MemoryWatch::setLimit(std::size_t bytes) {
    bytes = std::min(bytes, kHardLimit / 2);
    // Several hosts of a thread may set the same limit. That must not clear what is full.
    if (bytes == limit()) return;
    nextRequestAbove_ = 0;
    if (allocator_ != nullptr) allocator_->setLimit(bytes);
    policy_.setLimit(bytes, running_ != nullptr);
}

bool MemoryWatch::endRunThatCollected() {
    if (policy_.isLimitPending()) nextRequestAbove_ = 0;
    return policy_.endRun();
}

void MemoryWatch::afterCollection(v8::Isolate* /*isolate*/, v8::GCType type,
                                  v8::GCCallbackFlags /*flags*/, void* self) {
    static_cast<MemoryWatch*>(self)->measure(type);
}

void MemoryWatch::measure(v8::GCType type) {
    hasCollected_ = true;
    std::size_t const allowance = policy_.allowance();
    if (type == v8::kGCTypeMarkSweepCompact) {
        std::size_t const inUse = use_.bytes();
        nextRequestAbove_ = std::min(inUse, allowance) + allowance / kPartBeforeNextRequest;
        if (running_ == nullptr) return;
        if (request_ == Request::collecting && inUse > allowance) {
            running_->requestEnd(EndReason::memoryLimit);
        } else if (inUse > allowance || use_.isScattered(allowance / 2)) {
            requestCollection();
        }
    } else if (running_ != nullptr && use_.bytes() > std::max(allowance, nextRequestAbove_)) {
        requestCollection();
    }
}

void MemoryWatch::requestCollection() {
    if (request_ != Request::none) return;
    request_ = Request::made;
    isolate_->RequestInterrupt(collectNow, this);
}

void MemoryWatch::collectNow(v8::Isolate* isolate, void* self) {
    auto* const watch = static_cast<MemoryWatch*>(self);
    if (watch->running_ != nullptr) {
        // A full collection, after which measure() decides. The level goes back at once: it is not
        // the machine that is short of memory.
        watch->request_ = Request::collecting;
        isolate->MemoryPressureNotification(v8::MemoryPressureLevel::kCritical);
        isolate->MemoryPressureNotification(v8::MemoryPressureLevel::kNone);
    }
    // Not before: a young collection within this one must not make a request. V8 serves requests
    // until there are none, and would never return to the script to end it.
    watch->request_ = Request::none;
}

std::size_t MemoryWatch::nearHardLimit(void* self, std::size_t current, std::size_t /*initial*/) {
    auto* const watch = static_cast<MemoryWatch*>(self);
    if (watch->running_ == nullptr) return current;  // not a script of this library
    watch->running_->requestEnd(EndReason::memoryLimit);
    return current + kReprieve;
}

}  // namespace kx
