#include "host/Carriers.h"

#include <algorithm>
#include <new>

#include "engine/V8Compat.h"
#include "host/BoundVariable.h"

namespace kx {

namespace {

constexpr int kVariableField = 0;

void carryNothing(v8::Local<v8::Object> object) {
    object->SetAlignedPointerInInternalField(kVariableField, nullptr);
}

}  // namespace

Carriers::Carriers() = default;
Carriers::~Carriers() = default;
Carriers::Carriers(Carriers&&) noexcept = default;
Carriers& Carriers::operator=(Carriers&&) noexcept = default;

v8::Local<v8::Object> Carriers::make(v8::Local<v8::Context> context,
                                     v8::Local<v8::ObjectTemplate> shape, BoundVariable& variable) {
    v8::Local<v8::Object> carrier;
    if (!shape->NewInstance(context).ToLocal(&carrier)) return {};
    forgetCollected();
    carriers_.push_back(makePersistent(variable.handles(), carrier));
    carriers_.back()->makeWeak();
    carrier->SetAlignedPointerInInternalField(kVariableField, &variable);
    return carrier;
}

// One that cannot be made shows when a script runs: the prologue finds no such name.
void Carriers::define(v8::Local<v8::Context> context, v8::Local<v8::ObjectTemplate> shape,
                      BoundVariable& variable) {
    v8::Local<v8::Object> const carrier = make(context, shape, variable);
    v8::Local<v8::String> const name = variable.carrierName(v8::Isolate::GetCurrent());
    if (carrier.IsEmpty() || name.IsEmpty()) return;
    variable.globals().hasCarrier =
        context->Global()->CreateDataProperty(context, name, carrier).FromMaybe(false);
}

bool Carriers::isCarrierOf(v8::Local<v8::Value> value, BoundVariable const& variable) {
    if (!value->IsObject() || value->IsProxy()) return false;
    auto const object = value.As<v8::Object>();
    return object->InternalFieldCount() == 1 &&
           v8compat::alignedPointerOrNull(object, kVariableField) == &variable;
}

void Carriers::cutAll(v8::Isolate* isolate) {
    v8::HandleScope const handles(isolate);
    for (auto const& carrier : carriers_) {
        if (!carrier->isEmpty()) carryNothing(carrier->get(isolate));
    }
    carriers_.clear();
    variables_.clear();
}

// The getter cannot tell that a global object's field was never set, as it can for other objects.
void Carriers::leaveGlobalEmpty(v8::Local<v8::Context> context) {
    v8::Local<v8::Object> const proxy = context->Global();
    carryNothing(proxy);
    // The global object itself, which GetPrototypeV2() of newer versions of V8 skips.
    carryNothing(proxy->GetPrototype().As<v8::Object>());
}

BoundVariable& Carriers::bound(KxJsVariable const& variable, std::u16string_view accessorName,
                               OwnHandles& handles) {
    std::unique_ptr<BoundVariable>& bound = variables_[&variable];
    if (bound == nullptr) {
        bound = std::make_unique<BoundVariable>(variable, accessorName, handles);
    }
    return *bound;
}

// Every parse makes new carriers, and most are collected. The list is swept only when it has
// doubled, so that a carrier costs constant time.
void Carriers::forgetCollected() {
    if (carriers_.size() < collectAt_) return;
    std::erase_if(carriers_, [](auto const& carrier) { return carrier->isEmpty(); });
    collectAt_ = std::max<std::size_t>(64, carriers_.size() * 2);
}

void Carriers::accessorGetter(v8::Local<v8::Name> /*property*/,
                              v8::PropertyCallbackInfo<v8::Value> const& info) {
    auto* const variable =
        static_cast<BoundVariable*>(v8compat::alignedPointerOrNull(info.Holder(), kVariableField));
    if (variable == nullptr) return;  // undefined
    try {
        variable->read(info.GetIsolate(), info.GetReturnValue());
    } catch (std::bad_alloc const&) {
        // A C++ exception must not pass through V8: the script gets one of JavaScript.
        info.GetIsolate()->ThrowError("Not enough memory for the value of a variable");
    }
}

}  // namespace kx
