#include "host/BoundVariable.h"

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "engine/Text.h"
#include "host/KeyNames.h"
#include "host/SeenText.h"

namespace kx {

std::u16string carrierNameFor(std::u16string const& key) { return key + u"___" + key; }

BoundVariable::BoundVariable(KxJsVariable const& variable, std::u16string_view accessorName,
                             OwnHandles& handles)
    : variable_(variable),
      prologueLine_(variable.getKey() + u"=" + carrierNameFor(variable.getKey()) + u"." +
                    std::u16string(accessorName) + u";\n"),
      handles_(handles),
      carrierName_(handles),
      lastText_(handles) {}

v8::Local<v8::String> BoundVariable::carrierName(v8::Isolate* isolate) {
    if (carrierName_.isEmpty()) {
        carrierName_.hold(toV8Name(isolate, carrierNameFor(variable_.getKey())));
    }
    return carrierName_.get(isolate);
}

template <class Use>
void BoundVariable::visit(v8::Isolate* isolate, Use use) {
    switch (variable_.getType()) {
        case KxJsVariable::TYPE_OF_VAR_LONG:
            use(variable_.getLongValue());
            break;
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            use(variable_.getDoubleValue());
            break;
        case KxJsVariable::TYPE_OF_VAR_STRING:
            visitText(isolate, use);
            break;
        default:
            use(variable_.getBooleanValue());
    }
}

template <class Use>
void BoundVariable::visitText(v8::Isolate* isolate, Use use) {
    std::u16string_view const units = firstUnits(variable_._mStrValue);
    if (!areLastUnits(units)) {
        lastUnits_ = units;
        lastText_.drop();
        use(toV8String(isolate, seenText(units)));
        return;
    }
    if (lastText_.isEmpty()) {
        lastText_.hold(toV8String(isolate, seenText(units)));
    }
    if (!lastText_.isEmpty()) use(lastText_.get(isolate));
}

void BoundVariable::read(v8::Isolate* isolate, v8::ReturnValue<v8::Value> result) {
    visit(isolate, [result](auto value) mutable { result.Set(value); });
}

v8::Local<v8::Value> BoundVariable::value(v8::Isolate* isolate) {
    v8::Local<v8::Value> result;
    visit(isolate, [&](auto value) {
        if constexpr (std::is_same_v<decltype(value), std::int32_t>) {
            result = v8::Integer::New(isolate, value);
        } else if constexpr (std::is_same_v<decltype(value), double>) {
            result = v8::Number::New(isolate, value);
        } else if constexpr (std::is_same_v<decltype(value), bool>) {
            result = v8::Boolean::New(isolate, value);
        } else {
            result = v8::Local<v8::Value>::New(isolate, value);
        }
    });
    return result;
}

Value BoundVariable::nativeValue() const {
    switch (variable_.getType()) {
        case KxJsVariable::TYPE_OF_VAR_LONG:
            return Value::of(static_cast<double>(variable_.getLongValue()));
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            return Value::of(variable_.getDoubleValue());
        case KxJsVariable::TYPE_OF_VAR_STRING:
            return Value::of(seenText(variable_._mStrValue));
        default:
            return Value::of(variable_.getBooleanValue());
    }
}

bool BoundVariable::isPlain() {
    if (!isPlain_) isPlain_ = isPlainKey(key());
    return *isPlain_;
}

void BoundVariable::keepValue(Value const& value) {
    kept_ = value;
    if (value.isText()) keptText_.assign(value.text());
}

v8::Local<v8::Value> BoundVariable::keptValue(v8::Isolate* isolate) const {
    if (kept_.isText()) return toV8String(isolate, keptText_);
    if (kept_.isNumber()) return v8::Number::New(isolate, kept_.number);
    return v8::Boolean::New(isolate, kept_.number != 0);
}

bool BoundVariable::areLastUnits(std::u16string_view units) const {
    // Not by operator==, which compares unit by unit.
    return units.size() == lastUnits_.size() &&
           std::memcmp(units.data(), lastUnits_.data(), units.size() * sizeof(char16_t)) == 0;
}

}  // namespace kx
