#pragma once

#include <atomic>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>

#include <v8.h>

#include "engine/CountingAllocator.h"
#include "engine/Engine.h"
#include "engine/MemoryWatch.h"
#include "engine/PersistentHandle.h"
#include "engine/V8Compat.h"
#include "host/HostResources.h"

namespace kx {

/// One isolate that hosts use: the application's, or one that this library made for a thread that
/// had none.
///
/// An isolate's handles may be disposed of on its thread only, and not after the isolate. Hosts may
/// be destroyed on any thread and at any time. release() therefore frees their handles at once on
/// the isolate's thread, keeps them for later on another thread, and abandons them where the
/// isolate is gone.
///
/// An isolate that the library made lives as long as its record, which its thread and all its hosts
/// share.
class IsolateRecord {
  public:
    /// The record of the calling thread's current isolate. Starts V8 and makes an isolate
    /// for the thread where there is none. In a forked child, one without an isolate.
    static std::shared_ptr<IsolateRecord> current();

    /// The application's isolate.
    explicit IsolateRecord(v8::Isolate* isolate);
    /// A new isolate of the library's own.
    IsolateRecord();
    ~IsolateRecord();
    IsolateRecord(IsolateRecord const&) = delete;
    IsolateRecord& operator=(IsolateRecord const&) = delete;

    /// Null once the application has disposed of its isolate.
    v8::Isolate* isolate() const { return isolate_.load(std::memory_order_acquire); }

    /// Whether the calling thread may use the isolate: it is alive and the current one.
    bool isCurrent() const {
        v8::Isolate* const mine = isolate();
        return mine != nullptr && mine == v8::Isolate::TryGetCurrent() && !isForkedChild();
    }

    /// The handles that the library holds in the isolate.
    OwnHandles& handles() { return handles_; }

    /// Whether the library has made the isolate.
    bool isOwn() const { return allocator_ != nullptr; }

    /// Whether the calling thread has stack enough left for what the library does without V8.
    /// Otherwise V8 is to say that it is full. Always where the limit is not known.
    bool hasStackLeft() const {
        constexpr std::uintptr_t kEnough = std::uintptr_t{64} << 10;
        char const here = 0;
        return reinterpret_cast<std::uintptr_t>(&here) > stackLimit_ + kEnough;
    }

    /// Frees what a host no longer needs, now or as soon as that is possible.
    void release(std::list<HostResources> resources) noexcept;

    /// Frees what other threads have released. Called with the isolate current, often.
    void freePending() {
        if (hasPending_.load(std::memory_order_relaxed)) freePendingNow();
    }

    /// The built-in functions, compiled once for the isolate. Empty on the first call.
    std::unique_ptr<PersistentHandle<v8::UnboundScript>>& libraryScript() { return libraryScript_; }

    /// Runs the promise jobs that the last script has left. In an isolate of the application, they
    /// run as the application has set it up.
    void runPromiseJobs();

    /// Drops the promise jobs of a script that was ended, which would run with the next one. Leaves
    /// a request to terminate behind. In an isolate of the application nothing is dropped: the jobs
    /// may be the application's.
    void dropPromiseJobs();

    /// How far scripts may grow the stack. For an isolate of the library's own, on its thread.
    void setStackLimit(std::uintptr_t limit);

    /// Called before the engine is. Where the stack is beyond the limit already, scripts end at
    /// once, but some versions of V8 crash: for them the limit then follows the stack.
    void followStack() {
        if constexpr (v8compat::kCrashesBeyondStackLimit) {
            if (stackLimit_ != 0) lowerStackLimit();
        }
    }

    /// The watch over the isolate's memory; null for an application's isolate without a limit.
    MemoryWatch* memory() const { return memory_.get(); }

    void setMemoryLimit(std::size_t bytes);

    /// The run to end when memory runs out. Returns the one before.
    RunControl* watchMemory(RunControl* control) {
        return memory_ == nullptr ? nullptr : memory_->watch(control);
    }

    /// Abandons every handle: called while the application disposes of its isolate.
    void isolateIsGone();

  private:
    void freePendingNow();

    void lowerStackLimit();

    std::unique_ptr<CountingAllocator> allocator_;  // null for an application's isolate
    std::atomic<v8::Isolate*> isolate_;
    OwnHandles handles_;
    std::uintptr_t stackLimit_ = 0;         // 0: the engine's own
    std::uintptr_t enginesStackLimit_ = 0;  // what it was told last
    std::unique_ptr<MemoryWatch> memory_;
    std::unique_ptr<PersistentHandle<v8::UnboundScript>> libraryScript_;
    std::mutex mutex_;  // guards pending_
    std::list<HostResources> pending_;
    std::atomic<bool> hasPending_ = false;
};

}  // namespace kx
