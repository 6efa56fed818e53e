#include "LateBinding.h"

#include <algorithm>
#include <stdexcept>

namespace test {

Dispatch createLateParser() {
    Dispatch object;
    HRESULT const outcome = CoCreateInstance(CLSID_KxJsParserX, nullptr, CLSCTX_INPROC_SERVER,
                                             IID_IDispatch, object.putVoid());
    if (FAILED(outcome)) throw std::runtime_error("no parser: " + std::to_string(outcome));
    return object;
}

DISPID idOf(Dispatch const& object, std::wstring const& name) {
    auto* text = const_cast<LPOLESTR>(name.c_str());
    DISPID id = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

HRESULT call(Dispatch const& object, std::wstring const& name, std::vector<VARIANT> arguments,
             VARIANT* result) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return object->Invoke(idOf(object, name), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                          &parameters, result, nullptr, nullptr);
}

VARIANT argument(BSTR text) {
    VARIANT variant;
    variant.vt = VT_BSTR;
    variant.bstrVal = text;
    return variant;
}

VARIANT argument(LONG number) {
    VARIANT variant;
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

VARIANT argument(double number) {
    VARIANT variant;
    variant.vt = VT_R8;
    variant.dblVal = number;
    return variant;
}

VARIANT argument(bool value) {
    VARIANT variant;
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}

VARIANT variableArgument(VARIANT& variable) {
    VARIANT variant;
    variant.vt = VT_BYREF | VT_VARIANT;
    variant.pvarVal = &variable;
    return variant;
}

VARIANT textReference(BSTR& text) {
    VARIANT variant;
    variant.vt = VT_BYREF | VT_BSTR;
    variant.pbstrVal = &text;
    return variant;
}

}  // namespace test
