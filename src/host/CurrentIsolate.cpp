#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "engine/Engine.h"
#include "engine/IsolateEndNotice.h"
#include "engine/StackBounds.h"
#include "host/IsolateRecord.h"

namespace kx {

namespace {

/// Keeps V8's first block of handles. Without an outermost scope that has a handle, each run would
/// allocate a block and free it.
class OutermostHandles {
  public:
    explicit OutermostHandles(v8::Isolate* isolate)
        : scope_(isolate), first_(v8::Number::New(isolate, 0)) {}

  private:
    v8::HandleScope scope_;
    v8::Local<v8::Value> first_;
};

/// The isolate that this library made for a thread: entered from the thread's first host to the
/// thread's end.
class ThreadIsolate {
  public:
    ThreadIsolate() : record_(std::make_shared<IsolateRecord>()) {}
    ThreadIsolate(ThreadIsolate const&) = delete;
    ThreadIsolate& operator=(ThreadIsolate const&) = delete;

    ~ThreadIsolate() {
        if (isForkedChild()) {
            (void)handles_.release();
            return;
        }
        handles_.reset();
        // Hosts that are still alive hold the record too, and the isolate with it.
        if (record_->isCurrent()) record_->isolate()->Exit();
    }

    bool holds(v8::Isolate* isolate) const { return record_->isolate() == isolate; }

    std::shared_ptr<IsolateRecord> const& entered() {
        if (!record_->isCurrent()) enter();
        return record_;
    }

  private:
    void enter() {
        v8::Isolate* const isolate = record_->isolate();
        isolate->Enter();
        if (std::uintptr_t const limit = scriptStackLimit(threadStackBounds()); limit != 0) {
            record_->setStackLimit(limit);
        }
        if (handles_ == nullptr) handles_ = std::make_unique<OutermostHandles>(isolate);
    }

    std::shared_ptr<IsolateRecord> record_;
    std::unique_ptr<OutermostHandles> handles_;
};

// A plain pointer, because hosts may still be made while the thread destroys its objects.
thread_local ThreadIsolate* threadIsolate = nullptr;

struct ThreadEnd {
    ~ThreadEnd() { delete std::exchange(threadIsolate, nullptr); }
};

ThreadIsolate& ensureThreadIsolate() {
    [[maybe_unused]] static thread_local ThreadEnd end;
    if (threadIsolate == nullptr) threadIsolate = new ThreadIsolate;
    return *threadIsolate;
}

/// The records of the application's isolates, one each, kept until the isolate is disposed of.
class ApplicationIsolates {
  public:
    static ApplicationIsolates& instance() {
        static auto* const isolates = new ApplicationIsolates;  // isolates may outlive statics
        return *isolates;
    }

    std::shared_ptr<IsolateRecord> find(v8::Isolate* isolate) {
        std::lock_guard const lock(mutex_);
        std::shared_ptr<IsolateRecord>& record = records_[isolate];
        if (record == nullptr) {
            auto made = std::make_shared<IsolateRecord>(isolate);
            notifyAtIsolateEnd(isolate, [isolate] { instance().forget(isolate); });
            record = std::move(made);  // only now: a record must learn of its isolate's end
        }
        return record;
    }

  private:
    void forget(v8::Isolate* isolate) {
        std::shared_ptr<IsolateRecord> record;
        {
            std::lock_guard const lock(mutex_);
            auto const found = records_.find(isolate);
            if (found == records_.end()) return;
            record = std::move(found->second);
            records_.erase(found);
        }
        record->isolateIsGone();
    }

    std::mutex mutex_;
    std::map<v8::Isolate*, std::shared_ptr<IsolateRecord>> records_;
};

}  // namespace

std::shared_ptr<IsolateRecord> IsolateRecord::current() {
    if (isForkedChild()) return std::make_shared<IsolateRecord>(nullptr);
    startEngine();  // TryGetCurrent() is only valid once V8 is initialized
    v8::Isolate* const isolate = v8::Isolate::TryGetCurrent();
    bool const isThreadOwn = threadIsolate != nullptr && threadIsolate->holds(isolate);
    if (isolate == nullptr || isThreadOwn) return ensureThreadIsolate().entered();
    return ApplicationIsolates::instance().find(isolate);
}

}  // namespace kx
