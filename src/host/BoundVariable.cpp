#include "host/BoundVariable.h"

#include <cstring>

#include "engine/Text.h"
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
        carrierName_.hold(toEngineName(isolate, carrierNameFor(variable_.getKey())));
    }
    return carrierName_.get(isolate);
}

void BoundVariable::read(v8::Isolate* isolate, v8::ReturnValue<v8::Value> result) {
    switch (variable_.getType()) {
        case KxJsVariable::TYPE_OF_VAR_LONG:
            result.Set(variable_.getLongValue());
            break;
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            result.Set(variable_.getDoubleValue());
            break;
        case KxJsVariable::TYPE_OF_VAR_STRING:
            readText(isolate, result);
            break;
        default:
            result.Set(variable_.getBooleanValue());
    }
}

void BoundVariable::readText(v8::Isolate* isolate, v8::ReturnValue<v8::Value> result) {
    std::u16string_view const units = firstUnits(variable_._mStrValue);
    if (!areLastUnits(units)) {
        lastUnits_ = units;
        lastText_.drop();
        result.Set(toEngineString(isolate, seenText(units)));
        return;
    }
    if (lastText_.isEmpty()) {
        lastText_.hold(toEngineString(isolate, seenText(units)));
    }
    if (!lastText_.isEmpty()) result.Set(lastText_.get(isolate));
}

bool BoundVariable::areLastUnits(std::u16string_view units) const {
    // Not by operator==, which compares unit by unit.
    return units.size() == lastUnits_.size() &&
           std::memcmp(units.data(), lastUnits_.data(), units.size() * sizeof(char16_t)) == 0;
}

}  // namespace kx
