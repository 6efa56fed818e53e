#include "host/IsolateRecord.h"

#include <utility>

namespace kx {

namespace {

/// Handles whose isolate is gone cannot be disposed of: touching one ends the process. They are
/// kept here, reachable and unused, for the rest of the process. Only an application that disposes
/// of its isolate before its hosts pays for this, with a few bytes per host.
struct Graveyard {
    std::mutex mutex;
    std::vector<HostRemains> remains;
    std::vector<std::unique_ptr<PersistentHandle<v8::UnboundScript>>> libraries;
};

Graveyard& graveyard() {
    static Graveyard* const instance = new Graveyard;  // never destroyed, nor its handles
    return *instance;
}

void bury(HostRemains remains) {
    remains.variables.clear();  // no carrier is left to read them
    std::lock_guard const lock(graveyard().mutex);
    graveyard().remains.push_back(std::move(remains));
}

void freeRemains(v8::Isolate* isolate, HostRemains remains) { remains.carriers.cutAll(isolate); }

}  // namespace

IsolateRecord::IsolateRecord(v8::Isolate* isolate, bool isOwned)
    : isolate_(isolate), isOwned_(isOwned) {}

IsolateRecord::~IsolateRecord() {
    if (!isOwned_) return;
    // The thread and every host are gone, so nobody can run a script in the isolate any more.
    v8::Isolate* const mine = isolate();
    {
        v8::Isolate::Scope const entered(mine);
        freeParkedNow();
        libraryScript_.reset();
    }
    mine->Dispose();
}

void IsolateRecord::release(HostRemains remains) {
    if (isCurrent()) {
        freeRemains(isolate(), std::move(remains));
        return;
    }
    std::lock_guard const lock(mutex_);
    if (isolate() == nullptr) {
        bury(std::move(remains));
        return;
    }
    parked_.push_back(std::move(remains));
    hasParked_.store(true, std::memory_order_relaxed);
}

void IsolateRecord::freeParkedNow() {
    std::vector<HostRemains> parked;
    {
        std::lock_guard const lock(mutex_);
        parked.swap(parked_);
        hasParked_.store(false, std::memory_order_relaxed);
    }
    for (HostRemains& remains : parked) freeRemains(isolate(), std::move(remains));
}

void IsolateRecord::isolateIsGone() {
    std::lock_guard const lock(mutex_);
    isolate_.store(nullptr, std::memory_order_release);
    for (HostRemains& remains : parked_) bury(std::move(remains));
    parked_.clear();
    if (libraryScript_ != nullptr) {
        std::lock_guard const graveyardLock(graveyard().mutex);
        graveyard().libraries.push_back(std::move(libraryScript_));
    }
}

}  // namespace kx
