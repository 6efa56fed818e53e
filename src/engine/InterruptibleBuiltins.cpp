// Compiled without run-time type information, which V8's library lacks: a class derived
// from one of V8's would not link otherwise.
#include "engine/InterruptibleBuiltins.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>

#include "engine/InterruptibleBuiltinsText.h"
#include "engine/V8Compat.h"

namespace kx {

namespace {

constexpr char const* kName = "interruptible";

constexpr double kEndless = std::numeric_limits<double>::infinity();

/// An array of so many elements is one with an ordinary chain of prototypes, or every hole takes
/// its time.
constexpr std::uint32_t kManyElements = 1U << 16;
constexpr int kOrdinaryChain = 16;

/// The length that an object other than an array has or claims by itself. Runs no script: a length
/// that only a script would tell counts as endless. `ofTypedArrays` is V8's getter.
std::optional<double> ownLength(v8::Local<v8::Context> context, v8::Local<v8::Object> object,
                                v8::Local<v8::Object> receiver,
                                v8::Local<v8::Value> ofTypedArrays) {
    v8::Isolate* const isolate = context->GetIsolate();
    v8::HandleScope const handles(isolate);
    auto const lengthName = v8::String::NewFromUtf8Literal(isolate, "length");
    v8::Local<v8::Value> property;
    if (!object->GetOwnPropertyDescriptor(context, lengthName).ToLocal(&property)) return kEndless;
    if (!property->IsObject()) return {};
    auto const descriptor = property.As<v8::Object>();
    // What is not the descriptor's own would be somebody's getter.
    auto const field = [&](v8::Local<v8::String> name) -> v8::Local<v8::Value> {
        v8::Local<v8::Value> value;
        if (descriptor->HasOwnProperty(context, name).FromMaybe(false) &&
            descriptor->Get(context, name).ToLocal(&value)) {
            return value;
        }
        return v8::Undefined(isolate);
    };
    auto const value = field(v8::String::NewFromUtf8Literal(isolate, "value"));
    if (value->IsNumber()) return std::max(value.As<v8::Number>()->Value(), 0.0);
    auto const getter = field(v8::String::NewFromUtf8Literal(isolate, "get"));
    if (receiver->IsTypedArray() && getter->StrictEquals(ofTypedArrays)) {
        return static_cast<double>(receiver.As<v8::TypedArray>()->Length());
    }
    return kEndless;
}

double lengthOfArray(v8::Local<v8::Array> array) {
    std::uint32_t const length = array->Length();
    if (length <= kManyElements) return length;
    v8::Local<v8::Value> inherited = v8compat::prototypeOf(array);
    for (int i = 0; i < kOrdinaryChain; ++i) {
        if (!inherited->IsObject() || inherited->IsProxy()) return length;
        inherited = v8compat::prototypeOf(inherited.As<v8::Object>());
    }
    return kEndless;
}

/// -1 where the value has no length.
double lengthOf(v8::Local<v8::Context> context, v8::Local<v8::Value> value,
                v8::Local<v8::Value> ofTypedArrays) {
    if (value->IsArray()) return lengthOfArray(value.As<v8::Array>());
    if (value->IsString()) return value.As<v8::String>()->Length();
    v8::Local<v8::Object> receiver;
    if (value->IsNullOrUndefined() || !value->ToObject(context).ToLocal(&receiver)) return -1;
    v8::Local<v8::Value> next = receiver;
    while (next->IsObject()) {
        if (next->IsProxy()) return kEndless;
        if (next->IsArray()) return next.As<v8::Array>()->Length();
        auto const object = next.As<v8::Object>();
        if (auto const length = ownLength(context, object, receiver, ofTypedArrays)) return *length;
        next = v8compat::prototypeOf(object);
    }
    return -1;
}

using Call = v8::FunctionCallbackInfo<v8::Value>;

// What a script cannot ask without another script noticing.
void lengthOf(Call const& call) {
    call.GetReturnValue().Set(lengthOf(call.GetIsolate()->GetCurrentContext(), call[0], call[1]));
}
void isArrayObject(Call const& call) { call.GetReturnValue().Set(call[0]->IsArray()); }
void isRegExp(Call const& call) { call.GetReturnValue().Set(call[0]->IsRegExp()); }
void isTypedArray(Call const& call) { call.GetReturnValue().Set(call[0]->IsTypedArray()); }
void isConstructor(Call const& call) {
    call.GetReturnValue().Set(call[0]->IsObject() && call[0].As<v8::Object>()->IsConstructor());
}

v8::FunctionCallback nativeFunction(std::string_view name) {
    if (name == "isArrayObject") return isArrayObject;
    if (name == "isConstructor") return isConstructor;
    if (name == "isRegExp") return isRegExp;
    if (name == "isTypedArray") return isTypedArray;
    return static_cast<v8::FunctionCallback>(lengthOf);
}

class Builtins final : public v8::Extension {
  public:
    Builtins() : v8::Extension(kName, kInterruptibleBuiltinsText) {}

    v8::Local<v8::FunctionTemplate> GetNativeFunctionTemplate(v8::Isolate* isolate,
                                                              v8::Local<v8::String> name) override {
        return v8::FunctionTemplate::New(isolate,
                                         nativeFunction(*v8::String::Utf8Value(isolate, name)));
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
