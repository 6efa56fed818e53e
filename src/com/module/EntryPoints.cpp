#include <olectl.h>
#include <windows.h>

#include "KxJsParserDllApp.h"
#include "KxJsParserModule.h"
#include "Registration.h"

// What the COM library and the registration tools call.

CKxJsParserModule theModule;

namespace {

CKxJsParserDllApp theApp;

HRESULT registerObjectFactories(HRESULT outcome, bool enter) {
    if (outcome != S_OK) return outcome;
    return theApp.updateObjectFactories(enter) ? S_OK : SELFREG_E_CLASS;
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* processEnds) {
    switch (reason) {
        case DLL_PROCESS_ATTACH:
            DisableThreadLibraryCalls(instance);
            return theApp.InitInstance();
        case DLL_PROCESS_DETACH:
            // When the whole process ends, other modules may be gone already, and the system
            // takes the memory back by itself.
            if (processEnds == nullptr) theModule.term();
            break;
        default:
            break;
    }
    return TRUE;
}

STDAPI DllCanUnloadNow() { return theModule.canUnloadNow(); }

STDAPI DllGetClassObject(REFCLSID rclsid, REFIID riid, void** ppv) {
    if (ppv == nullptr) return theApp.getClassObject(rclsid, riid, ppv);
    HRESULT const outcome = theModule.getClassObject(rclsid, riid, ppv);
    if (outcome == S_OK && *ppv != nullptr) return S_OK;
    return theApp.getClassObject(rclsid, riid, ppv);
}

STDAPI DllRegisterServer() {
    // The application identifier serves tools only: without it the class works all the same.
    kx::updateApplicationRegistry(kx::RegistryMode::enter);
    return registerObjectFactories(theModule.registerServer(), true);
}

STDAPI DllUnregisterServer() {
    kx::updateApplicationRegistry(kx::RegistryMode::remove);
    return registerObjectFactories(theModule.unregisterServer(), false);
}
