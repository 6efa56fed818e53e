#pragma once

#include <memory>

#include <v8.h>

#include "engine/OwnHandles.h"
#include "engine/V8Compat.h"

namespace kx {

/// A cell on the heap that keeps one engine object alive. Destroying the cell disposes of the
/// handle, so a cell must not be destroyed after its isolate: see IsolateRecord.
template <class T>
class PersistentHandle {
  public:
    PersistentHandle(v8::Isolate* isolate, v8::Local<T> object)
        : handle_(ownHandle(isolate, object)) {}

    /// Valid as long as the cell.
    v8::Local<T> get(v8::Isolate* isolate) const { return v8compat::localOf(isolate, handle_); }

  private:
    v8::Global<T> handle_;
};

/// Null for an empty handle.
template <class T>
std::unique_ptr<PersistentHandle<T>> makePersistent(v8::Isolate* isolate, v8::Local<T> object) {
    if (object.IsEmpty()) return nullptr;
    return std::make_unique<PersistentHandle<T>>(isolate, object);
}

}  // namespace kx
