#pragma once

#include <string>

#include "host/KxJsVariable.h"
#include "host/SeenText.h"
#include "native/Value.h"

/// The value that formulas read from the variable; `text` holds it.
inline kx::Value valueOf(KxJsVariable const& variable, std::u16string& text) {
    switch (variable.getType()) {
        case KxJsVariable::TYPE_OF_VAR_LONG:
            return kx::Value::of(static_cast<double>(variable.getLongValue()));
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            return kx::Value::of(variable.getDoubleValue());
        case KxJsVariable::TYPE_OF_VAR_STRING:
            text = variable.getStrValue();
            return kx::Value::of(kx::seenText(text));
        default:
            return kx::Value::of(variable.getBooleanValue());
    }
}
