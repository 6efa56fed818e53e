#include "host/KxJsVariable.h"

#include <array>
#include <charconv>
#include <utility>

#include "host/SeenText.h"

namespace {

std::u16string textOrEmpty(char16_t const* text) {
    return text == nullptr ? std::u16string() : std::u16string(text);
}

template <std::size_t kMost, class... Format>
std::u16string formatNumber(Format... format) {
    std::array<char, kMost> buffer;
    auto const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), format...);
    if (end.ec != std::errc()) return {};
    return {buffer.data(), end.ptr};
}

}  // namespace

KxJsVariable::KxJsVariable() = default;

KxJsVariable::KxJsVariable(std::u16string key, std::int32_t value)
    : _mKey(std::move(key)), _mLongValue(value), _mType(TYPE_OF_VAR_LONG) {}

KxJsVariable::KxJsVariable(std::u16string key, double value)
    : _mKey(std::move(key)), _mDoubleValue(value), _mType(TYPE_OF_VAR_DOUBLE) {}

KxJsVariable::KxJsVariable(std::u16string key, char16_t const* value)
    : _mKey(std::move(key)), _mStrValue(textOrEmpty(value)), _mType(TYPE_OF_VAR_STRING) {}

KxJsVariable::KxJsVariable(std::u16string key, std::u16string const& value)
    : _mKey(std::move(key)), _mStrValue(value.data(), value.size()), _mType(TYPE_OF_VAR_STRING) {}

KxJsVariable::KxJsVariable(std::u16string key, bool value)
    : _mKey(std::move(key)), _mBooleanValue(value), _mType(TYPE_OF_VAR_BOOLEAN) {}

KxJsVariable::KxJsVariable(KxJsVariable const& other) = default;

KxJsVariable& KxJsVariable::operator=(KxJsVariable const& other) {
    if (this == &other) return *this;
    // All that can fail comes first: a variable is assigned as a whole or not at all.
    _mStrValue.reserve(other._mStrValue.size());
    _mKey = other._mKey;
    _mStrValue = other._mStrValue;
    _mLongValue = other._mLongValue;
    _mDoubleValue = other._mDoubleValue;
    _mBooleanValue = other._mBooleanValue;
    _mType = other._mType;
    return *this;
}

KxJsVariable::~KxJsVariable() = default;

void KxJsVariable::setValue(std::int32_t value) {
    _mLongValue = value;
    _mType = TYPE_OF_VAR_LONG;
}

void KxJsVariable::setValue(double value) {
    _mDoubleValue = value;
    _mType = TYPE_OF_VAR_DOUBLE;
}

void KxJsVariable::setValue(std::u16string value) {
    _mStrValue = std::move(value);
    _mType = TYPE_OF_VAR_STRING;
}

void KxJsVariable::setValue(char16_t const* value) {
    _mStrValue = textOrEmpty(value);
    _mType = TYPE_OF_VAR_STRING;
}

void KxJsVariable::setValue(bool value) {
    _mBooleanValue = value;
    _mType = TYPE_OF_VAR_BOOLEAN;
}

std::u16string KxJsVariable::valueToString() const {
    switch (_mType) {
        case TYPE_OF_VAR_STRING:
            return std::u16string(kx::seenText(_mStrValue));
        case TYPE_OF_VAR_LONG:
            return formatNumber<kMaxTextLength>(_mLongValue);
        case TYPE_OF_VAR_DOUBLE:
            return formatNumber<kMaxTextLength>(_mDoubleValue, std::chars_format::fixed, 6);
        default:
            return _mBooleanValue ? u"true" : u"false";
    }
}
