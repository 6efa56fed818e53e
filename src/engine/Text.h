#pragma once

#include <string>
#include <string_view>

#include <v8.h>

namespace kx {

/// A new V8 string of the same code units. Empty where `text` is longer than V8
/// allows (v8::String::kMaxLength).
v8::Local<v8::String> toV8String(v8::Isolate* isolate, std::u16string_view text);

/// The same as the name of a property, which V8 finds faster.
v8::Local<v8::String> toV8Name(v8::Isolate* isolate, std::u16string_view text);

/// The code units of `text` up to its first U+0000. An empty handle gives the empty text.
std::u16string fromV8String(v8::Isolate* isolate, v8::Local<v8::String> text);

/// The text of any value, as scripts convert it. Empty where the conversion throws, and for an
/// object or symbol without a context. The exception is left to the caller's v8::TryCatch.
std::u16string textOfValue(v8::Isolate* isolate, v8::Local<v8::Context> context,
                           v8::Local<v8::Value> value);

}  // namespace kx
