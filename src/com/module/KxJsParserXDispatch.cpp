#include "Dispatch.h"
#include "KxJsParserX.h"
#include "TypeLibrary.h"

// Late binding: the type library says what the names and arguments mean. There is one set of
// names, so the locale of a call plays no part.

STDMETHODIMP KxJsParserX::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

STDMETHODIMP KxJsParserX::GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return kx::interfaceTypeInfo(info);
}

STDMETHODIMP KxJsParserX::GetIDsOfNames(REFIID /*riid*/, LPOLESTR* names, UINT count,
                                        LCID /*locale*/, DISPID* ids) {
    ITypeInfo* info = nullptr;
    HRESULT outcome = kx::interfaceTypeInfo(&info);
    if (FAILED(outcome)) return outcome;
    outcome = info->GetIDsOfNames(names, count, ids);
    info->Release();
    return outcome;
}

STDMETHODIMP KxJsParserX::Invoke(DISPID id, REFIID /*riid*/, LCID /*locale*/, WORD flags,
                                 DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                 UINT* badArgument) {
    ITypeInfo* info = nullptr;
    HRESULT outcome = kx::interfaceTypeInfo(&info);
    if (FAILED(outcome)) return outcome;
    outcome = kx::invoke(*info, *this, id, flags, parameters, result, exception, badArgument);
    info->Release();
    return outcome;
}
