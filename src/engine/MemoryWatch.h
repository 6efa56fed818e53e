#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include <v8.h>

#include "engine/CountingAllocator.h"
#include "engine/MemoryPolicy.h"
#include "engine/MemoryUse.h"
#include "engine/PersistentHandle.h"
#include "engine/RunControl.h"

namespace kx {

/// A quarter of the machine's memory, at most 512 MiB.
std::size_t defaultMemoryLimit();

/// Ends the run that fills an isolate's memory, long before V8 would end the process.
///
/// Memory is measured after every garbage collection. Only a full collection tells what is really
/// in use: a young one leaves old garbage, and an incremental one leaves what became garbage after
/// it began. Where one of those finds too much, a full collection is requested, for the next point
/// at which the script can be interrupted. Too much after that ends the run. Otherwise the next
/// full collection waits until much has been added, so that a run near its limit does not collect
/// all the time.
///
/// A single built-in call may fill the heap without such a point. V8 then asks for more memory just
/// before it gives up: it gets some, and the run is ended.
class MemoryWatch {
  public:
    /// V8's own limit, at which it ends the process: far above any limit that is set here.
    static constexpr std::size_t kHardLimit = std::size_t{8} << 30;

    /// As MemoryUse takes them.
    MemoryWatch(OwnHandles const& own, CountingAllocator* allocator, std::size_t limit);
    ~MemoryWatch();
    MemoryWatch(MemoryWatch const&) = delete;
    MemoryWatch& operator=(MemoryWatch const&) = delete;

    std::size_t limit() const { return policy_.limit(); }
    /// At most half of kHardLimit: more counts as that.
    void setLimit(std::size_t bytes);

    /// The run to end when memory runs out; null where none is going on. Returns the one before.
    RunControl* watch(RunControl* control) { return std::exchange(running_, control); }

    /// See MemoryPolicy.
    /// @{
    bool endRun() {
        // Without a collection during the run, nothing is known that was not known before.
        bool const hasCollected = std::exchange(hasCollected_, false);
        return (hasCollected || policy_.isLimitPending()) && endRunThatCollected();
    }
    void collectAfterRun() { policy_.collectAfterRun(); }
    bool isFull() { return policy_.isFull(); }
    void somethingWasReleased() { policy_.somethingWasReleased(); }
    /// @}

    /// Forgets the isolate, which is being disposed of.
    void isolateIsGone() { isolate_ = nullptr; }

  private:
    /// Of a full collection that was requested.
    enum class Request : std::uint8_t { none, made, collecting };

    static void afterCollection(v8::Isolate* isolate, v8::GCType type, v8::GCCallbackFlags flags,
                                void* self);
    static void collectNow(v8::Isolate* isolate, void* self);
    static std::size_t nearHardLimit(void* self, std::size_t current, std::size_t initial);

    void measure(v8::GCType type);
    void requestCollection();
    bool endRunThatCollected();

    v8::Isolate* isolate_;
    CountingAllocator* const allocator_;
    MemoryUse const use_;
    MemoryPolicy policy_;
    RunControl* running_ = nullptr;
    bool hasCollected_ = false;  // during the run
    Request request_ = Request::none;
    std::size_t nextRequestAbove_ = 0;  // in use after a young collection
};

}  // namespace kx
