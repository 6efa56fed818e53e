#include "columns/KeysCheck.h"

#include <algorithm>

#include "columns/NameMeaning.h"
#include "engine/Text.h"
#include "host/BoundVariable.h"
#include "host/Carriers.h"
#include "text/NameUnits.h"

namespace kx {

namespace {

/// For a key that is more than a name, such as "A.B", the prologue line may do anything.
bool isName(std::u16string_view key) {
    return !key.empty() && isLatinNameStart(key.front()) &&
           std::all_of(key.begin(), key.end(), isLatinNamePart);
}

bool isPlainGlobal(v8::Local<v8::Context> context, v8::Local<v8::String> name) {
    v8::Local<v8::Object> const global = context->Global();
    return global->HasRealNamedProperty(context, name).FromMaybe(false) &&
           !global->HasRealNamedCallbackProperty(context, name).FromMaybe(true) &&
           global->GetRealNamedPropertyAttributes(context, name).FromMaybe(v8::ReadOnly) ==
               v8::None;
}

/// Whether reading the accessor calls the host's getter. A script can define another property in
/// its place: to V8, the host's is the one that has a callback and, in its descriptor, a value.
bool hasOwnAccessor(v8::Local<v8::Context> context, v8::Local<v8::Object> carrier,
                    v8::Local<v8::String> accessor) {
    v8::Local<v8::Value> descriptor;
    return carrier->HasRealNamedCallbackProperty(context, accessor).FromMaybe(false) &&
           carrier->GetOwnPropertyDescriptor(context, accessor).ToLocal(&descriptor) &&
           descriptor.As<v8::Object>()
               ->HasRealNamedProperty(context, toV8Name(v8::Isolate::GetCurrent(), u"value"))
               .FromMaybe(false);
}

}  // namespace

bool areCarriersKeys(std::vector<std::u16string> const& keys) {
    return std::any_of(keys.begin(), keys.end(), [&](std::u16string const& key) {
        return std::find(keys.begin(), keys.end(), carrierNameFor(key)) != keys.end();
    });
}

bool isBoundAsMade(v8::Local<v8::Context> context, std::u16string const& key,
                   BoundVariable const& bound, std::u16string_view accessorName) {
    if (!isName(key)) return false;
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    v8::HandleScope const handles(isolate);
    v8::TryCatch const ignored(isolate);
    v8::Local<v8::String> const name = toV8Name(isolate, key);
    v8::Local<v8::String> const carrierName = toV8Name(isolate, carrierNameFor(key));
    if (name.IsEmpty() || carrierName.IsEmpty()) return false;
    if (!isPlainGlobal(context, name) || !isPlainGlobal(context, carrierName)) return false;
    v8::Local<v8::Value> carrier;
    return context->Global()->GetRealNamedProperty(context, carrierName).ToLocal(&carrier) &&
           Carriers::isCarrierOf(carrier, bound) &&
           hasOwnAccessor(context, carrier.As<v8::Object>(), toV8Name(isolate, accessorName));
}

bool areCarriersUnshadowed(v8::Local<v8::Context> context,
                           std::vector<std::u16string> const& keys) {
    if (keys.empty()) return true;
    v8::HandleScope const handles(v8::Isolate::GetCurrent());
    std::vector<std::u16string> names(keys.size());
    std::transform(keys.begin(), keys.end(), names.begin(), carrierNameFor);
    return unshadowedValues(context, names).has_value();
}

}  // namespace kx
