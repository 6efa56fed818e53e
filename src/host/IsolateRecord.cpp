#include "host/IsolateRecord.h"

#include <algorithm>
#include <new>
#include <utility>

#include "host/Failure.h"

namespace kx {

namespace {

/// Handles whose isolate is gone. Disposing of one would end the process, so they are kept here,
/// unused, until the process ends. This happens only where an application disposes of its isolate
/// before its hosts, and takes a few bytes for each host.
struct AbandonedHandles {
    std::mutex mutex;
    std::list<HostResources> resources;
    std::list<std::unique_ptr<PersistentHandle<v8::UnboundScript>>> libraries;
};

AbandonedHandles& abandoned() {
    static auto* const instance = new AbandonedHandles;  // never destroyed, nor its handles
    // Another one, since the mutex of the first may have been locked during the fork.
    static auto* const inForkedChild = new AbandonedHandles;
    return isForkedChild() ? *inForkedChild : *instance;
}

void abandon(std::list<HostResources>& dead) {
    for (HostResources& resources : dead) resources.variables.clear();  // no script reads them now
    std::lock_guard const lock(abandoned().mutex);
    abandoned().resources.splice(abandoned().resources.end(), dead);
}

v8::Isolate* makeIsolate(v8::ArrayBuffer::Allocator& allocator) {
    v8::Isolate::CreateParams parameters;
    parameters.array_buffer_allocator = &allocator;
    parameters.constraints.set_max_old_generation_size_in_bytes(MemoryWatch::kHardLimit);
    // Without a histogram, V8 calls this again and again, and locks a mutex each time.
    parameters.create_histogram_callback = [](char const*, int, int, std::size_t) -> void* {
        static char anyAddress;
        return &anyAddress;
    };
    parameters.add_histogram_sample_callback = [](void*, int) {};
    v8::Isolate* const isolate = v8::Isolate::New(parameters);
    // Otherwise a script that was ended would go on in its promise jobs: see runPromiseJobs().
    isolate->SetMicrotasksPolicy(v8::MicrotasksPolicy::kExplicit);
    // Nothing could wake a formula that waits.
    isolate->SetAllowAtomicsWait(false);
    // For the caller's line where a built-in function throws.
    isolate->SetCaptureStackTraceForUncaughtExceptions(true, kFrameLimit);
    return isolate;
}

void freeResources(v8::Isolate* isolate, std::list<HostResources>& resources) {
    for (HostResources& one : resources) one.carriers.cutAll(isolate);
    resources.clear();
}

}  // namespace

IsolateRecord::IsolateRecord(v8::Isolate* isolate) : isolate_(isolate), handles_(isolate) {}

IsolateRecord::IsolateRecord()
    : allocator_(makeCountingAllocator(defaultMemoryLimit())),
      isolate_(makeIsolate(*allocator_)),
      handles_(isolate()) {
    try {
        memory_ = std::make_unique<MemoryWatch>(handles_, allocator_.get(), defaultMemoryLimit());
    } catch (std::bad_alloc const&) {
        isolate()->Dispose();
        throw;
    }
}

IsolateRecord::~IsolateRecord() {
    if (isForkedChild()) {
        isolateIsGone();
        (void)allocator_.release();  // V8 has buffers of it
        return;
    }
    if (allocator_ == nullptr) return;
    // The thread and all hosts are gone, so no script can run in the isolate any more.
    v8::Isolate* const mine = isolate();
    {
        v8::Isolate::Scope const entered(mine);
        freePendingNow();
        libraryScript_.reset();
        memory_.reset();
    }
    mine->Dispose();
}

void IsolateRecord::runPromiseJobs() {
    if (allocator_ != nullptr) isolate()->PerformMicrotaskCheckpoint();
}

void IsolateRecord::dropPromiseJobs() {
    if (allocator_ == nullptr) return;
    v8::HandleScope const handles(isolate());
    isolate()->TerminateExecution();  // ends the first job, and with it drops the others
    isolate()->PerformMicrotaskCheckpoint();
}

void IsolateRecord::setStackLimit(std::uintptr_t limit) {
    stackLimit_ = enginesStackLimit_ = limit;
    isolate()->SetStackLimit(limit);
}

void IsolateRecord::lowerStackLimit() {
    auto const here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    std::uintptr_t const limit = std::min(stackLimit_, here);
    if (limit == enginesStackLimit_) return;
    enginesStackLimit_ = limit;
    isolate()->SetStackLimit(limit);
}

void IsolateRecord::setMemoryLimit(std::size_t bytes) {
    // The first limit in an application's isolate is set as any later one.
    if (memory_ == nullptr) {
        memory_ = std::make_unique<MemoryWatch>(handles_, nullptr, defaultMemoryLimit());
    }
    memory_->setLimit(bytes);
}

void IsolateRecord::release(std::list<HostResources> resources) noexcept {
    if (isCurrent()) {
        freeResources(isolate(), resources);
        if (memory_ != nullptr) memory_->somethingWasReleased();
        return;
    }
    if (isForkedChild()) {  // the mutex may have been locked during the fork
        abandon(resources);
        return;
    }
    std::lock_guard const lock(mutex_);
    if (isolate() == nullptr) {
        abandon(resources);
        return;
    }
    pending_.splice(pending_.end(), resources);
    hasPending_.store(true, std::memory_order_relaxed);
}

void IsolateRecord::freePendingNow() {
    std::list<HostResources> pending;
    {
        std::lock_guard const lock(mutex_);
        pending.swap(pending_);
        hasPending_.store(false, std::memory_order_relaxed);
    }
    freeResources(isolate(), pending);
    if (memory_ != nullptr) memory_->somethingWasReleased();
}

void IsolateRecord::isolateIsGone() {
    std::lock_guard const lock(mutex_);
    isolate_.store(nullptr, std::memory_order_release);
    if (memory_ != nullptr) memory_->isolateIsGone();
    abandon(pending_);
    if (libraryScript_ != nullptr) {
        std::lock_guard const abandonedLock(abandoned().mutex);
        try {
            abandoned().libraries.push_back(std::move(libraryScript_));
        } catch (std::bad_alloc const&) {
            (void)libraryScript_.release();  // leaked: it cannot be disposed of either
        }
    }
}

}  // namespace kx
