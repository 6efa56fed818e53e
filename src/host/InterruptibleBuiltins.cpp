// Compiled without run-time type information, which the engine's library lacks: a class derived
// from one of the engine's would not link otherwise.
#include "host/InterruptibleBuiltins.h"

#include <array>
#include <limits>
#include <memory>
#include <optional>

#include "host/InterruptibleBuiltinsText.h"
#include "host/V8Compat.h"

namespace kx {

namespace {

constexpr char const* kName = "interruptible";

constexpr double kEndless = std::numeric_limits<double>::infinity();

/// The length that an object other than a proxy has or claims by itself. Runs no script: a length
/// that only a script would tell counts as endless.
std::optional<double> ownLength(v8::Local<v8::Context> context, v8::Local<v8::Object> object) {
    v8::Isolate* const isolate = context->GetIsolate();
    v8::HandleScope const handles(isolate);
    auto const lengthName = v8::String::NewFromUtf8Literal(isolate, "length");
    auto const valueName = v8::String::NewFromUtf8Literal(isolate, "value");
    v8::Local<v8::Value> property;
    if (!object->GetOwnPropertyDescriptor(context, lengthName).ToLocal(&property)) return kEndless;
    if (!property->IsObject()) return {};
    auto const descriptor = property.As<v8::Object>();
    v8::Local<v8::Value> value;
    if (descriptor->HasOwnProperty(context, valueName).FromMaybe(false) &&
        descriptor->Get(context, valueName).ToLocal(&value) && value->IsNumber()) {
        return value.As<v8::Number>()->Value();
    }
    return kEndless;
}

double lengthOf(v8::Local<v8::Context> context, v8::Local<v8::Value> value) {
    if (value->IsString()) return value.As<v8::String>()->Length();
    while (value->IsObject()) {
        if (value->IsArray()) return value.As<v8::Array>()->Length();
        if (value->IsTypedArray()) return static_cast<double>(value.As<v8::TypedArray>()->Length());
        if (value->IsProxy()) return kEndless;
        auto const object = value.As<v8::Object>();
        if (auto const length = ownLength(context, object)) return *length;
        value = v8compat::prototypeOf(object);
    }
    return 0;
}

void lengthOfArgument(v8::FunctionCallbackInfo<v8::Value> const& call) {
    call.GetReturnValue().Set(lengthOf(call.GetIsolate()->GetCurrentContext(), call[0]));
}

class Builtins final : public v8::Extension {
  public:
    Builtins() : v8::Extension(kName, kInterruptibleBuiltinsText) {}

    v8::Local<v8::FunctionTemplate> GetNativeFunctionTemplate(
        v8::Isolate* isolate, v8::Local<v8::String> /*name*/) override {
        return v8::FunctionTemplate::New(isolate, lengthOfArgument);
    }
};

}  // namespace

void registerInterruptibleBuiltins() { v8::RegisterExtension(std::make_unique<Builtins>()); }

v8::ExtensionConfiguration* interruptibleBuiltins() {
    static std::array names = {kName};
    static v8::ExtensionConfiguration configuration(1, names.data());
    return &configuration;
}

}  // namespace kx
