#pragma once

#include <string>
#include <string_view>

#include <v8.h>

/// The engine calls whose form differs between the V8 versions that this library builds with, or
/// that need knowledge of a version. Everything else in the room is written once.
namespace kx::v8compat {

/// Whether the application has started V8 in this process by itself. Starting it a second time
/// ends the process, and the engine has no public question for it.
bool isEngineRunning();

/// A template property that scripts can read and not write.
void setReadOnlyAccessor(v8::Isolate* isolate, v8::Local<v8::ObjectTemplate> target,
                         v8::Local<v8::String> name, v8::AccessorNameGetterCallback getter);

/// What the internal field `index` of `object` holds; undefined where it was never set.
v8::Local<v8::Value> internalField(v8::Local<v8::Object> object, int index);

/// Copies the code units of `text` to `target`, which has room for text->Length() of them.
void writeCodeUnits(v8::Isolate* isolate, v8::Local<v8::String> text, char16_t* target);

}  // namespace kx::v8compat
