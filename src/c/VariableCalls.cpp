#include "c/Border.h"
#include "c/kxjs_variable.h"

namespace kx::c {
namespace {

template <class Unit>
kxjs_status createVariable(Unit const* key, std::size_t length, kxjs_variable** variable) {
    return guarded([&] {
        kxjs_variable*& handle = out(variable);
        auto made = std::make_shared<Variable>();
        made->key = textOf(key, length);
        return create(&handle, std::move(made));
    });
}

template <class Value>
kxjs_status setValue(kxjs_variable* handle, Value value) {
    return guarded([&] {
        object<Variable>(handle).set(value);
        return KXJS_OK;
    });
}

template <class Unit>
kxjs_status setTextValue(kxjs_variable* handle, Unit const* value, std::size_t length) {
    return guarded([&] {
        auto& variable = object<Variable>(handle);
        variable.set(textOf(value, length));
        return KXJS_OK;
    });
}

template <class Value, class Read>
kxjs_status read(kxjs_variable* handle, Value* value, Read read) {
    return guarded([&] {
        Value& result = out(value);
        result = static_cast<Value>(read(object<Variable>(handle).variable));
        return KXJS_OK;
    });
}

template <class Read>
kxjs_status readText(kxjs_variable* handle, kxjs_text* text, Read read) {
    return guarded([&] {
        auto& variable = object<Variable>(handle);
        auto& result = object<Text>(text);
        result.set(read(variable));
        return KXJS_OK;
    });
}

}  // namespace
}  // namespace kx::c

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_variable_create(char const* key, size_t key_length, kxjs_variable** variable) {
    return createVariable(key, key_length, variable);
}

kxjs_status kxjs_variable_create_utf16(uint16_t const* key, size_t key_length,
                                       kxjs_variable** variable) {
    return createVariable(key, key_length, variable);
}

kxjs_status kxjs_variable_free(kxjs_variable* variable) {
    return guarded([&] { return release<Variable>(variable); });
}

kxjs_status kxjs_variable_set_int32(kxjs_variable* variable, int32_t value) {
    return setValue(variable, value);
}

kxjs_status kxjs_variable_set_double(kxjs_variable* variable, double value) {
    return setValue(variable, value);
}

kxjs_status kxjs_variable_set_bool(kxjs_variable* variable, int32_t value) {
    return setValue(variable, value != 0);
}

kxjs_status kxjs_variable_set_text(kxjs_variable* variable, char const* value,
                                   size_t value_length) {
    return setTextValue(variable, value, value_length);
}

kxjs_status kxjs_variable_set_text_utf16(kxjs_variable* variable, uint16_t const* value,
                                         size_t value_length) {
    return setTextValue(variable, value, value_length);
}

kxjs_status kxjs_variable_type(kxjs_variable* variable, int32_t* type) {
    return read(variable, type, [](KxJsVariable const& it) { return it.getType(); });
}

kxjs_status kxjs_variable_int32(kxjs_variable* variable, int32_t* value) {
    return read(variable, value, [](KxJsVariable const& it) { return it.getLongValue(); });
}

kxjs_status kxjs_variable_double(kxjs_variable* variable, double* value) {
    return read(variable, value, [](KxJsVariable const& it) { return it.getDoubleValue(); });
}

kxjs_status kxjs_variable_bool(kxjs_variable* variable, int32_t* value) {
    return read(variable, value, [](KxJsVariable const& it) { return it.getBooleanValue(); });
}

kxjs_status kxjs_variable_text(kxjs_variable* variable, kxjs_text* value) {
    return readText(variable, value, [](Variable const& it) { return it.variable.getStrValue(); });
}

kxjs_status kxjs_variable_key(kxjs_variable* variable, kxjs_text* key) {
    return readText(variable, key, [](Variable const& it) { return it.key; });
}

kxjs_status kxjs_variable_to_text(kxjs_variable* variable, kxjs_text* text) {
    return readText(variable, text, [](Variable const& it) { return it.variable.valueToString(); });
}

}  // extern "C"
