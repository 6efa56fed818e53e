#include "host/BoundVariable.h"

#include <cstring>

#include "host/Text.h"

namespace kx {

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
    std::u16string_view const text = variable_.seenText();
    if (!isLastText(text)) {
        lastText_ = text;
        engineText_.Reset();
        result.Set(toEngineString(isolate, text));
        return;
    }
    if (engineText_.IsEmpty()) engineText_.Reset(isolate, toEngineString(isolate, text));
    result.Set(engineText_);
}

bool BoundVariable::isLastText(std::u16string_view text) const {
    // Not by operator==, which compares unit by unit.
    return text.size() == lastText_.size() &&
           std::memcmp(text.data(), lastText_.data(), text.size() * sizeof(char16_t)) == 0;
}

}  // namespace kx
