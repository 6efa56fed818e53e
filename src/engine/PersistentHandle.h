#pragma once

#include <cstddef>
#include <memory>

#include <v8.h>

#include "engine/V8Compat.h"

namespace kx {

template <class T>
class PersistentHandle;

/// The handles that the library holds in one isolate. V8 has handles for its own objects,
/// too, and MemoryWatch has to tell them apart, so the library's are counted where they are made.
class OwnHandles {
  public:
    explicit OwnHandles(v8::Isolate* isolate) : isolate_(isolate) {}
    OwnHandles(OwnHandles const&) = delete;
    OwnHandles& operator=(OwnHandles const&) = delete;

    v8::Isolate* isolate() const { return isolate_; }
    std::size_t count() const { return count_; }

  private:
    template <class T>
    friend class PersistentHandle;

    v8::Isolate* const isolate_;
    std::size_t count_ = 0;
};

/// Keeps one V8 object alive, or, made weak, knows of it until it is collected. Destroying the
/// handle disposes of it in V8, so it must not be destroyed after its isolate: see
/// IsolateRecord.
template <class T>
class PersistentHandle {
  public:
    explicit PersistentHandle(OwnHandles& all) : all_(all) {}
    /// Holds nothing where `object` is empty.
    PersistentHandle(OwnHandles& all, v8::Local<T> object) : all_(all) { hold(object); }
    ~PersistentHandle() { drop(); }
    PersistentHandle(PersistentHandle const&) = delete;
    PersistentHandle& operator=(PersistentHandle const&) = delete;

    bool isEmpty() const { return handle_.IsEmpty(); }

    /// Valid as long as the handle holds the object.
    v8::Local<T> get(v8::Isolate* isolate) const { return v8compat::localOf(isolate, handle_); }

    void hold(v8::Local<T> object) {
        drop();
        handle_.Reset(all_.isolate(), object);
        if (!isEmpty()) ++all_.count_;
    }

    void drop() {
        if (isEmpty()) return;
        handle_.Reset();
        --all_.count_;
    }

    /// The object may be collected; the handle is empty then.
    void makeWeak() {
        handle_.SetWeak(
            this,
            [](v8::WeakCallbackInfo<PersistentHandle> const& info) { info.GetParameter()->drop(); },
            v8::WeakCallbackType::kParameter);
    }

  private:
    OwnHandles& all_;
    v8::Global<T> handle_;
};

/// Null for an empty handle.
template <class T>
std::unique_ptr<PersistentHandle<T>> makePersistent(OwnHandles& all, v8::Local<T> object) {
    if (object.IsEmpty()) return nullptr;
    return std::make_unique<PersistentHandle<T>>(all, object);
}

}  // namespace kx
