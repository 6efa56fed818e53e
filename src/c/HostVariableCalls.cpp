// The variables of a host.
#include "c/HostOfCall.h"

namespace kx::c {
namespace {

kxjs_status store(Host& host, KxJsVariable const& variable) {
    return host.parser.addSetVariable(variable) ? KXJS_OK : KXJS_REFUSED;
}

template <class Unit, class Value>
kxjs_status setVariable(kxjs_host* handle, Unit const* key, std::size_t length, Value value) {
    return guarded([&] {
        Host& host = hostOf(handle);
        return store(host, KxJsVariable(textOf(key, length), value));
    });
}

template <class Unit>
kxjs_status setTextVariable(kxjs_host* handle, Unit const* key, std::size_t keyLength,
                            Unit const* value, std::size_t valueLength) {
    return guarded([&] {
        Host& host = hostOf(handle);
        return store(host, KxJsVariable(textOf(key, keyLength), textOf(value, valueLength)));
    });
}

template <class Unit>
kxjs_status variableType(kxjs_host* handle, Unit const* key, std::size_t length,
                         std::int32_t* type) {
    return guarded([&] {
        KxJsParser const& parser = hostOf(handle).parser;
        std::int32_t& result = out(type);
        std::u16string const name = textOf(key, length);
        require(parser.variableExist(name), KXJS_NOT_FOUND);
        result = parser.getVariableType(name);
        return KXJS_OK;
    });
}

}  // namespace
}  // namespace kx::c

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_host_set_int32(kxjs_host* host, char const* key, size_t key_length,
                                int32_t value) {
    return setVariable(host, key, key_length, value);
}

kxjs_status kxjs_host_set_int32_utf16(kxjs_host* host, uint16_t const* key, size_t key_length,
                                      int32_t value) {
    return setVariable(host, key, key_length, value);
}

kxjs_status kxjs_host_set_double(kxjs_host* host, char const* key, size_t key_length,
                                 double value) {
    return setVariable(host, key, key_length, value);
}

kxjs_status kxjs_host_set_double_utf16(kxjs_host* host, uint16_t const* key, size_t key_length,
                                       double value) {
    return setVariable(host, key, key_length, value);
}

kxjs_status kxjs_host_set_bool(kxjs_host* host, char const* key, size_t key_length, int32_t value) {
    return setVariable(host, key, key_length, value != 0);
}

kxjs_status kxjs_host_set_bool_utf16(kxjs_host* host, uint16_t const* key, size_t key_length,
                                     int32_t value) {
    return setVariable(host, key, key_length, value != 0);
}

kxjs_status kxjs_host_set_text(kxjs_host* host, char const* key, size_t key_length,
                               char const* value, size_t value_length) {
    return setTextVariable(host, key, key_length, value, value_length);
}

kxjs_status kxjs_host_set_text_utf16(kxjs_host* host, uint16_t const* key, size_t key_length,
                                     uint16_t const* value, size_t value_length) {
    return setTextVariable(host, key, key_length, value, value_length);
}

kxjs_status kxjs_host_set_variable(kxjs_host* host, kxjs_variable* variable) {
    return guarded([&] {
        Host& itsHost = hostOf(host);
        return store(itsHost, object<Variable>(variable).variable);
    });
}

kxjs_status kxjs_host_variable_type(kxjs_host* host, char const* key, size_t key_length,
                                    int32_t* type) {
    return variableType(host, key, key_length, type);
}

kxjs_status kxjs_host_variable_type_utf16(kxjs_host* host, uint16_t const* key, size_t key_length,
                                          int32_t* type) {
    return variableType(host, key, key_length, type);
}

}  // extern "C"
