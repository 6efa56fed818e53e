#pragma once

#include <cstddef>
#include <cstdint>

#include <v8.h>

namespace kx {

/// What the library's own handles are marked with, since the engine has handles for its own
/// objects, too, and MemoryWatch has to tell them apart.
constexpr std::uint16_t kOwnHandle = 0x4B58;

/// A handle that keeps `object` alive, marked. Empty for an empty object.
template <class T>
v8::Global<T> ownHandle(v8::Isolate* isolate, v8::Local<T> object) {
    v8::Global<T> handle(isolate, object);
    if (!handle.IsEmpty()) handle.SetWrapperClassId(kOwnHandle);
    return handle;
}

/// How many handles an isolate has. May be asked at the end of a collection.
std::size_t countHandles(v8::HeapStatistics& statistics);

/// How many of them are marked. Takes a while, as it looks at each handle.
std::size_t countOwnHandles(v8::Isolate* isolate);

}  // namespace kx
