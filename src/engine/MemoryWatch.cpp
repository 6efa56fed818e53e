#include "engine/MemoryWatch.h"

#include <algorithm>
#include <unistd.h>

namespace kx {

namespace {

constexpr std::size_t kMebibyte = std::size_t{1} << 20;
constexpr std::size_t kLargestDefault = 512 * kMebibyte;

/// What a run may use however full the globals are.
constexpr std::size_t kLeastAllowance = 16 * kMebibyte;

/// What a host that was ended may keep beyond the limit, at least: its next scripts may be
/// harmless.
constexpr std::size_t kLeastRoom = 8 * kLeastAllowance;

/// A full collection takes long where much is in use, and most of what it cannot free it could not
/// free the time before: the next one waits until this part of the limit has been added.
constexpr std::size_t kPartBeforeNextLook = 8;

/// Unused parts of pages that are not worth a collection: a heap at work always has some.
constexpr std::size_t kScattered = 64 * kMebibyte;

/// What the engine gets on top when it is about to give up: room to come to a point where the run
/// can be ended.
constexpr std::size_t kReprieve = 512 * kMebibyte;

/// What an `Intl` object takes outside the heap, for each handle that the engine has for it: a
/// DateTimeFormat is the largest, with 57 KB behind three handles; most others take less than 10
/// KB.
constexpr std::size_t kBehindHandle = std::size_t{20} << 10;

/// The size of a handle in the engine's statistics.
constexpr std::size_t kHandleSize = 32;

}  // namespace

std::size_t defaultMemoryLimit() {
    long const pages = sysconf(_SC_PHYS_PAGES);
    long const pageSize = sysconf(_SC_PAGESIZE);
    if (pages <= 0 || pageSize <= 0) return kLargestDefault;
    return std::min(kLargestDefault,
                    static_cast<std::size_t>(pages) / 4 * static_cast<std::size_t>(pageSize));
}

MemoryWatch::MemoryWatch(OwnHandles const& own, CountingAllocator* allocator, std::size_t limit)
    : isolate_(own.isolate()),
      own_(own),
      allocator_(allocator),
      limit_(limit),
      allowance_(limit),
      ceiling_(limit + std::max(limit, kLeastRoom)) {
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
    // Several hosts of a thread may set the same: what they climb on is not to be forgotten.
    if (bytes == limit_) return;
    limit_ = bytes;
    applyLimit();
}

void MemoryWatch::applyLimit() {
    std::size_t const bytes = limit_;
    allowance_ = std::max(allowance_, bytes);
    lookAbove_ = 0;
    isFull_ = false;
    if (allocator_ != nullptr) allocator_->setLimit(bytes);
    std::size_t const room = std::max(bytes, kLeastRoom);
    ceiling_ = bytes + room;
    isLimitNew_ = running_ != nullptr;
    if (isLimitNew_) return;  // the run goes on with what it was allowed
    allowance_ = bytes;
    if (!isMoreInUse(bytes)) return;
    // Or the next run, which may need nothing, would be ended for what others have left.
    isolate_->LowMemoryNotification();
    ceiling_ = std::max(bytes, bytesInUse()) + room;
    allowance_ = std::max(bytes, bytesInUse() + slack());
}

std::size_t MemoryWatch::slack() const { return std::max(kLeastAllowance, limit_ / 8); }

void MemoryWatch::collect() {
    // Full collections, more than one: what a finalizer lets go of is only found by the next.
    isolate_->LowMemoryNotification();
    raiseAllowance();
}

void MemoryWatch::raiseAllowance() {
    allowance_ = std::max(limit_, bytesInUse() + slack());
    isFull_ = allowance_ > ceiling_;
    mayHaveChanged_ = false;
}

bool MemoryWatch::endRunThatCollected() {
    if (isLimitNew_) applyLimit();
    if (!isMoreInUse(allowance_)) return false;
    isolate_->LowMemoryNotification();
    if (!isMoreInUse(allowance_)) return false;
    raiseAllowance();
    return true;
}

bool MemoryWatch::isStillFull() {
    // What the application itself keeps in its isolate may have gone without a word.
    if (mayHaveChanged_ || allocator_ == nullptr) collect();
    return isFull_;
}

MemoryWatch::Use MemoryWatch::use() const {
    v8::HeapStatistics statistics;
    isolate_->GetHeapStatistics(&statistics);
    // In an isolate of the application, its buffers and handles are its own affair.
    if (allocator_ == nullptr) return {statistics.used_heap_size(), 0};
    return {statistics.used_heap_size() + allocator_->bytesInUse(),
            statistics.used_global_handles_size() / kHandleSize};
}

std::size_t MemoryWatch::bytesInUse() const {
    Use const now = use();
    std::size_t const own = std::min(now.handles, own_.count());
    return now.bytes + (now.handles - own) * kBehindHandle;
}

bool MemoryWatch::isMoreInUse(std::size_t bytes) const {
    Use const now = use();
    if (now.bytes > bytes) return true;
    // Mostly it does not matter whose the handles are, and nobody needs to look at each.
    return now.bytes + now.handles * kBehindHandle > bytes && bytesInUse() > bytes;
}

void MemoryWatch::afterCollection(v8::Isolate* /*isolate*/, v8::GCType type,
                                  v8::GCCallbackFlags /*flags*/, void* self) {
    static_cast<MemoryWatch*>(self)->look(type);
}

bool MemoryWatch::isScattered() const {
    v8::HeapStatistics statistics;
    isolate_->GetHeapStatistics(&statistics);
    std::size_t const unused = statistics.total_heap_size() - statistics.used_heap_size();
    return unused > std::max({kScattered, allowance_ / 2, 2 * statistics.used_heap_size()});
}

void MemoryWatch::look(v8::GCType type) {
    hasCollected_ = true;
    if (type == v8::kGCTypeMarkSweepCompact) {
        std::size_t const inUse = bytesInUse();
        lookAbove_ = std::min(inUse, allowance_) + allowance_ / kPartBeforeNextLook;
        if (running_ == nullptr) return;
        if (isLooking_ && inUse > allowance_) {
            running_->requestEnd(EndReason::memoryLimit);
        } else if (inUse > allowance_ || isScattered()) {
            askForALook();
        }
    } else if (running_ != nullptr && isMoreInUse(std::max(allowance_, lookAbove_))) {
        askForALook();
    }
}

void MemoryWatch::askForALook() {
    if (isLookPending_) return;
    isLookPending_ = true;
    isolate_->RequestInterrupt(collectAndLook, this);
}

void MemoryWatch::collectAndLook(v8::Isolate* isolate, void* self) {
    auto* const watch = static_cast<MemoryWatch*>(self);
    if (watch->running_ != nullptr) {
        // A full collection, at whose end look() decides. The level goes back at once: it is not
        // the machine that is short of memory.
        watch->isLooking_ = true;
        isolate->MemoryPressureNotification(v8::MemoryPressureLevel::kCritical);
        isolate->MemoryPressureNotification(v8::MemoryPressureLevel::kNone);
        watch->isLooking_ = false;
    }
    // Not before: the young part of this very collection must not ask again. The engine serves
    // requests until there are none, and would never come back to the script to end it.
    watch->isLookPending_ = false;
}

std::size_t MemoryWatch::nearHardLimit(void* self, std::size_t current, std::size_t /*initial*/) {
    auto* const watch = static_cast<MemoryWatch*>(self);
    if (watch->running_ == nullptr) return current;  // not a script of ours
    watch->running_->requestEnd(EndReason::memoryLimit);
    return current + kReprieve;
}

}  // namespace kx
