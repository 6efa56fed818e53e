#pragma once

#include <cstddef>
#include <utility>

#include <v8.h>

#include "engine/CountingAllocator.h"
#include "engine/PersistentHandle.h"
#include "engine/RunControl.h"

namespace kx {

/// A quarter of the machine's memory, at most 512 MiB.
std::size_t defaultMemoryLimit();

/// Ends the run that fills an isolate's memory, long before the engine would end the process.
///
/// The engine's own limit is a hard one: it aborts. This one is soft: the memory in use is looked
/// at after every garbage collection. A young collection leaves old garbage uncounted, and one that
/// the engine does in steps what became garbage after its first; so finding too much there only
/// asks for a full one at once, at the next point where the script can be interrupted; too much
/// after that ends the run. After one that did not, the next is asked for only when much has been
/// added, so that a run near its limit does not collect all the time.
/// Should a single built-in call fill the heap without such a point, the engine asks for more just
/// before it gives up: it gets more, and the run ends.
///
/// The engine says how much of its heap is in use, and the allocator how much array buffers take.
/// What `Intl` objects have outside the heap nobody knows; each counts as much as the largest that
/// are common take, so that a script that holds tens of thousands of them is ended, too.
///
/// What scripts keep in globals stays in use, so a run that was ended for it, or has come to its
/// end unseen, may leave the isolate full. The runs after it may use a little more than is in use
/// then, since the harmless among them need little. A host whose script keeps something each time
/// would climb on this: above the ceiling, hosts of which a run was ended here run nothing until
/// something has been given back.
class MemoryWatch {
  public:
    /// The engine's own limit, at which it ends the process: far above any that is watched.
    static constexpr std::size_t kHardLimit = std::size_t{8} << 30;

    /// `allocator` counts the isolate's array buffers; null where nobody counts them.
    MemoryWatch(OwnHandles const& own, CountingAllocator* allocator, std::size_t limit);
    ~MemoryWatch();
    MemoryWatch(MemoryWatch const&) = delete;
    MemoryWatch& operator=(MemoryWatch const&) = delete;

    std::size_t limit() const { return limit_; }
    /// At most half the engine's own limit. What is in use already may stay in use.
    void setLimit(std::size_t bytes);

    /// The run to end when memory runs out; null where none is going on. Returns the one before.
    RunControl* watch(RunControl* control) { return std::exchange(running_, control); }

    /// Gives memory back after a run that was ended for it.
    void collect();

    /// A run has come to its end. Returns whether it leaves more in use than runs may use; the next
    /// ones, which may be others', then get a little more.
    bool endRun() {
        bool const isToLook = std::exchange(hasCollected_, false) || isLimitNew_;
        return isToLook && endRunThatCollected();
    }

    /// Whether so much is kept that hosts of which a run was ended here must not run another. May
    /// collect garbage.
    bool isFull() { return isFull_ && isStillFull(); }

    /// The application has let go of something that scripts may have kept alive.
    void hasReleased() { mayHaveChanged_ = true; }

    /// Forgets the isolate, which is being disposed of.
    void isolateIsGone() { isolate_ = nullptr; }

  private:
    static void afterCollection(v8::Isolate* isolate, v8::GCType type, v8::GCCallbackFlags flags,
                                void* self);
    static void collectAndLook(v8::Isolate* isolate, void* self);
    static std::size_t nearHardLimit(void* self, std::size_t current, std::size_t initial);

    /// What the engine and the allocator say, and the handles of the engine and the library.
    struct Use {
        std::size_t bytes;
        std::size_t handles;
    };

    Use use() const;
    std::size_t bytesInUse() const;
    bool isMoreInUse(std::size_t bytes) const;
    /// Whether little that is in use keeps many pages of the heap: ordinary collections leave it
    /// where it is, and those that are asked for move it together.
    bool isScattered() const;
    void look(v8::GCType type);
    void askForALook();
    bool isStillFull();
    bool endRunThatCollected();
    void applyLimit();
    void raiseAllowance();
    std::size_t slack() const;

    v8::Isolate* isolate_;
    OwnHandles const& own_;
    CountingAllocator* const allocator_;
    std::size_t limit_;
    std::size_t allowance_;      // of the run that is going on
    std::size_t ceiling_;        // of what hosts that were ended here may keep
    std::size_t lookAbove_ = 0;  // what a young collection must leave to ask for a full one
    bool hasCollected_ = false;  // during the run
    bool isLimitNew_ = false;    // set during the run, and not in force yet
    bool isFull_ = false;
    bool mayHaveChanged_ = false;  // since it was found to be full
    RunControl* running_ = nullptr;
    bool isLookPending_ = false;
    bool isLooking_ = false;  // at what a collection that was asked for leaves
};

}  // namespace kx
