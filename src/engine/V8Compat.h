#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <v8.h>

/// The calls that differ between the versions of V8 that this library builds with. Everything else
/// in the library is the same for all versions.
namespace kx::v8compat {

/// No typed array has more elements than this, whatever they are.
#if V8_MAJOR_VERSION >= 12
constexpr std::size_t kMostArrayElements = v8::BigUint64Array::kMaxLength;
#else
constexpr std::size_t kMostArrayElements = v8::TypedArray::kMaxLength;
#endif

/// Whether the engine crashes, rather than throws, when it is called from far beyond the limit of
/// the stack that it was told.
constexpr bool kCrashesBeyondStackLimit = V8_MAJOR_VERSION >= 13;

/// Whether a process that has started the engine, and made no isolate, can be forked and the child
/// can use the engine. Newer engines have pages then that a child does not get.
constexpr bool kCanForkOnceStarted = V8_MAJOR_VERSION < 12;

/// Whether the application has started V8 in this process by itself. Starting it a second time
/// ends the process, and V8 has no public question for it. Newer engines tell it only where the
/// application has entered an isolate on this thread.
bool isV8Running();

/// Before the engine starts. The limits do not see WebAssembly's memory, and formulas do not need
/// it. Newer engines always offer it: see InProcessHost::createContext().
void leaveWebAssemblyOut();

/// A template property that scripts can read and not write.
inline void setReadOnlyAccessor([[maybe_unused]] v8::Isolate* isolate,
                                v8::Local<v8::ObjectTemplate> target, v8::Local<v8::String> name,
                                v8::AccessorNameGetterCallback getter) {
#if V8_MAJOR_VERSION >= 12
    // Without a setter, a script could put a value in the property's place.
    target->SetNativeDataProperty(name, getter,
                                  [](v8::Local<v8::Name> /*name*/, v8::Local<v8::Value> /*value*/,
                                     v8::PropertyCallbackInfo<void> const& /*info*/) {});
#else
    target->SetAccessor(v8::Local<v8::Name>(name), getter);
#endif
}

/// The aligned pointer in the internal field `index` of `object`; null where none was ever set and
/// the object is no global object.
inline void* alignedPointerOrNull(v8::Local<v8::Object> object, int index) {
    // A field that was never set holds a tagged reference, whose lowest bit is set.
    void* const pointer = object->GetAlignedPointerFromInternalField(index);
    return (reinterpret_cast<std::uintptr_t>(pointer) & 1) == 0 ? pointer : nullptr;
}

/// A handle to what `strong` holds, valid as long as `strong` is neither destroyed nor reset.
/// Unlike a handle of a scope it costs nothing.
template <class T>
v8::Local<T> localOf([[maybe_unused]] v8::Isolate* isolate, v8::Global<T> const& strong) {
#ifdef V8_ENABLE_DIRECT_HANDLE
    return strong.Get(isolate);
#else
    // Both are the address of a cell that holds the object.
    static_assert(sizeof(v8::Local<T>) == sizeof(v8::Global<T>));
    return reinterpret_cast<v8::Local<T> const&>(strong);
#endif
}

/// What `object` inherits from directly, or null. Runs no script where `object` is no proxy.
inline v8::Local<v8::Value> prototypeOf(v8::Local<v8::Object> object) {
#if V8_MAJOR_VERSION >= 13
    return object->GetPrototypeV2();
#else
    return object->GetPrototype();
#endif
}

/// Copies the code units of `text` to `target`, which holds text->Length() of them.
void writeCodeUnits(v8::Isolate* isolate, v8::Local<v8::String> text, char16_t* target);

}  // namespace kx::v8compat
