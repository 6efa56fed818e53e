#include "Dispatch.h"

#include <algorithm>
#include <memory>
#include <new>

namespace kx {

namespace {

// The methods with an outgoing error text, which is the second parameter of each.
constexpr DISPID parseId = 4;
constexpr DISPID executeId = 5;
constexpr DISPID extractVariableId = 13;
constexpr UINT errorPosition = 1;

/// Arguments stand in reverse order, named ones first. Null where the parameter at `position` was
/// not passed.
VARIANTARG* argumentAt(DISPPARAMS const& parameters, UINT position) {
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        if (parameters.rgdispidNamedArgs[i] == static_cast<DISPID>(position)) {
            return &parameters.rgvarg[i];
        }
    }
    if (position >= parameters.cArgs - parameters.cNamedArgs) return nullptr;
    return &parameters.rgvarg[parameters.cArgs - 1 - position];
}

/// The argument that is a script variable for an error text, or null.
VARIANTARG* errorVariable(DISPID id, DISPPARAMS const* parameters) {
    if (id != parseId && id != executeId && id != extractVariableId) return nullptr;
    if (parameters == nullptr || parameters->cArgs < parameters->cNamedArgs) return nullptr;
    VARIANTARG* const argument = argumentAt(*parameters, errorPosition);
    bool const isVariable = argument != nullptr && argument->vt == (VT_BYREF | VT_VARIANT) &&
                            argument->pvarVal != nullptr;
    return isVariable ? argument : nullptr;
}

/// Stores `text` in a script variable, or frees it where the variable cannot be overwritten.
HRESULT assign(VARIANT& variable, BSTR text) {
    HRESULT const cleared = VariantClear(&variable);
    if (FAILED(cleared)) {
        SysFreeString(text);
        return cleared;
    }
    variable.vt = VT_BSTR;
    variable.bstrVal = text;
    return S_OK;
}

}  // namespace

HRESULT invoke(ITypeInfo& info, IKxJsParserX& object, DISPID id, WORD flags, DISPPARAMS* parameters,
               VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    VARIANTARG* const variable = errorVariable(id, parameters);
    if (variable == nullptr) {
        return info.Invoke(&object, id, flags, parameters, result, exception, badArgument);
    }

    // The caller's arguments are not to be changed, so the call sees a copy of them.
    UINT const count = parameters->cArgs;
    // NOLINTNEXTLINE(modernize-avoid-c-arrays)
    std::unique_ptr<VARIANTARG[]> const arguments(new (std::nothrow) VARIANTARG[count]);
    if (!arguments) return E_OUTOFMEMORY;
    std::copy_n(parameters->rgvarg, count, arguments.get());
    BSTR error = nullptr;
    VARIANTARG& replaced = arguments[variable - parameters->rgvarg];
    replaced.vt = VT_BYREF | VT_BSTR;
    replaced.pbstrVal = &error;

    DISPPARAMS own = *parameters;
    own.rgvarg = arguments.get();
    HRESULT const outcome = info.Invoke(&object, id, flags, &own, result, exception, badArgument);
    if (FAILED(outcome)) {
        SysFreeString(error);
        return outcome;
    }
    HRESULT const assigned = assign(*variable->pvarVal, error);
    // A caller does not look at the result of a call that fails.
    if (FAILED(assigned) && result != nullptr) VariantClear(result);
    return assigned;
}

}  // namespace kx
