#pragma once

#include <windows.h>

namespace kx {

/// The interface of the registry script interpreter in the Active Template Library's module. The
/// mingw headers lack it; the order of the methods is the contract.
struct IRegistrar : public IUnknown {
    STDMETHOD(AddReplacement)(LPCOLESTR key, LPCOLESTR item) = 0;
    STDMETHOD(ClearReplacements)() = 0;
    STDMETHOD(ResourceRegisterSz)(LPCOLESTR file, LPCOLESTR id, LPCOLESTR type) = 0;
    STDMETHOD(ResourceUnregisterSz)(LPCOLESTR file, LPCOLESTR id, LPCOLESTR type) = 0;
    STDMETHOD(FileRegister)(LPCOLESTR file) = 0;
    STDMETHOD(FileUnregister)(LPCOLESTR file) = 0;
    STDMETHOD(StringRegister)(LPCOLESTR script) = 0;
    STDMETHOD(StringUnregister)(LPCOLESTR script) = 0;
    STDMETHOD(ResourceRegister)(LPCOLESTR file, UINT id, LPCOLESTR type) = 0;
    STDMETHOD(ResourceUnregister)(LPCOLESTR file, UINT id, LPCOLESTR type) = 0;
};

}  // namespace kx
