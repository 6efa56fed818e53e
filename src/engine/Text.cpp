#include "engine/Text.h"

#include <cstdint>

#include "engine/V8Compat.h"
#include "text/Contains.h"
#include "text/NumberText.h"

namespace kx {

namespace {

v8::Local<v8::String> newString(v8::Isolate* isolate, std::u16string_view text,
                                v8::NewStringType type) {
    if (text.size() > static_cast<std::size_t>(v8::String::kMaxLength)) return {};
    return v8::String::NewFromTwoByte(isolate, reinterpret_cast<std::uint16_t const*>(text.data()),
                                      type, static_cast<int>(text.size()))
        .FromMaybe(v8::Local<v8::String>());
}

}  // namespace

v8::Local<v8::String> toV8String(v8::Isolate* isolate, std::u16string_view text) {
    return newString(isolate, text, v8::NewStringType::kNormal);
}

v8::Local<v8::String> toV8Name(v8::Isolate* isolate, std::u16string_view text) {
    return newString(isolate, text, v8::NewStringType::kInternalized);
}

std::u16string fromV8String(v8::Isolate* isolate, v8::Local<v8::String> text) {
    if (text.IsEmpty()) return {};
    std::u16string result(static_cast<std::size_t>(text->Length()), u'\0');
    v8compat::writeCodeUnits(isolate, text, result.data());
    if (contains(result, u'\0')) result.resize(result.find(u'\0'));
    return result;
}

std::u16string textOfValue(v8::Isolate* isolate, v8::Local<v8::Context> context,
                           v8::Local<v8::Value> value) {
    if (value.IsEmpty()) return {};
    // Asked for first, because V8 answers this without a call.
    if (value->IsString()) return fromV8String(isolate, value.As<v8::String>());
    if (value->IsNumber()) return numberToText(value.As<v8::Number>()->Value());
    // What runs a script needs a context, and so does the exception for a symbol.
    if (context.IsEmpty() && (value->IsObject() || value->IsSymbol())) return {};
    // Newer versions of V8 convert nothing without a context.
    v8::Local<v8::Context> const any = context.IsEmpty() ? v8::Context::New(isolate) : context;
    v8::Local<v8::String> text;
    if (any.IsEmpty() || !value->ToString(any).ToLocal(&text)) return {};
    return fromV8String(isolate, text);
}

}  // namespace kx
