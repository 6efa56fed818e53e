#pragma once

#include <windows.h>

/// The application object of the module: what an application framework would do for it. There is
/// no framework here and there are no object factories besides the module's object map, so the
/// object has nothing to register and no class to offer.
class CKxJsParserDllApp {
  public:
    /// Called when the module is loaded.
    BOOL InitInstance() { return TRUE; }

    /// The last answer about a class: none of the framework's is available.
    HRESULT getClassObject(REFCLSID /*rclsid*/, REFIID /*riid*/, void** ppv) {
        if (ppv != nullptr) *ppv = nullptr;
        return CLASS_E_CLASSNOTAVAILABLE;
    }

    /// Enters the framework's object factories into the registry, or removes them.
    bool updateObjectFactories(bool /*enter*/) { return true; }
};
