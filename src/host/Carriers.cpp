#include "host/Carriers.h"

#include <algorithm>

#include "host/KxJsVariable.h"
#include "host/Text.h"
#include "host/V8Compat.h"

namespace kx {

namespace {

constexpr int kVariableField = 0;

/// Null for an object that carries no variable: the global object has the field too, so has a
/// carrier whose variable is gone, and so have objects that scripts make with a carrier's
/// constructor. Whatever has the accessor is made from the same template, and has the field.
KxJsVariable const* carriedVariable(v8::Local<v8::Object> holder) {
    v8::Local<v8::Value> const field = v8compat::internalField(holder, kVariableField);
    if (field.IsEmpty() || !field->IsExternal()) return nullptr;
    return static_cast<KxJsVariable const*>(field.As<v8::External>()->Value());
}

}  // namespace

v8::Local<v8::Object> Carriers::make(v8::Isolate* isolate, v8::Local<v8::Context> context,
                                     v8::Local<v8::ObjectTemplate> shape,
                                     KxJsVariable const& variable) {
    v8::Local<v8::Object> carrier;
    if (!shape->NewInstance(context).ToLocal(&carrier)) return {};
    forgetCollected();
    carriers_.emplace_back(isolate, carrier).SetWeak();
    carrier->SetInternalField(kVariableField,
                              v8::External::New(isolate, const_cast<KxJsVariable*>(&variable)));
    return carrier;
}

void Carriers::cutAll(v8::Isolate* isolate) {
    v8::HandleScope const handles(isolate);
    for (v8::Global<v8::Object> const& carrier : carriers_) {
        if (carrier.IsEmpty()) continue;
        carrier.Get(isolate)->SetInternalField(kVariableField, v8::Undefined(isolate));
    }
    carriers_.clear();
}

// Every parse makes new carriers and the collector takes most of them; sweeping only when the
// list has doubled keeps the cost of each carrier constant.
void Carriers::forgetCollected() {
    if (carriers_.size() < collectAt_) return;
    std::erase_if(carriers_, [](auto const& carrier) { return carrier.IsEmpty(); });
    collectAt_ = std::max<std::size_t>(64, carriers_.size() * 2);
}

void Carriers::accessorGetter(v8::Local<v8::Name> /*property*/,
                              v8::PropertyCallbackInfo<v8::Value> const& info) {
    KxJsVariable const* const variable = carriedVariable(info.Holder());
    if (variable == nullptr) return;  // undefined
    switch (variable->getType()) {
        case KxJsVariable::TYPE_OF_VAR_LONG:
            info.GetReturnValue().Set(variable->getLongValue());
            break;
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            info.GetReturnValue().Set(variable->getDoubleValue());
            break;
        case KxJsVariable::TYPE_OF_VAR_STRING:
            info.GetReturnValue().Set(toEngineString(info.GetIsolate(), variable->seenText()));
            break;
        default:
            info.GetReturnValue().Set(variable->getBooleanValue());
    }
}

}  // namespace kx
