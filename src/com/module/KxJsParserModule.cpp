#include "KxJsParserModule.h"

#include "Registration.h"
#include "TypeLibrary.h"

using kx::ObjectMapEntry;
using kx::RegistryMode;

CKxJsParserModule::CKxJsParserModule() { InitializeCriticalSection(&critical_); }

CKxJsParserModule::~CKxJsParserModule() { DeleteCriticalSection(&critical_); }

IClassFactory* CKxJsParserModule::classFactory(ObjectMapEntry& entry) {
    IClassFactory* factory = entry.classFactory.load(std::memory_order_acquire);
    if (factory != nullptr) return factory;
    EnterCriticalSection(&critical_);
    factory = entry.classFactory.load(std::memory_order_relaxed);
    if (factory == nullptr) {
        factory = entry.createClassFactory(entry.createInstance);
        if (factory != nullptr) factory->AddRef();  // the module's own reference
        entry.classFactory.store(factory, std::memory_order_release);
    }
    LeaveCriticalSection(&critical_);
    return factory;
}

HRESULT CKxJsParserModule::getClassObject(REFCLSID rclsid, REFIID riid, void** ppv) {
    *ppv = nullptr;
    for (ObjectMapEntry& entry : kx::objectMap) {
        if (entry.createClassFactory == nullptr || entry.clsid != rclsid) continue;
        IClassFactory* const factory = classFactory(entry);
        return factory != nullptr ? factory->QueryInterface(riid, ppv) : E_OUTOFMEMORY;
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT CKxJsParserModule::registerServer() {
    for (ObjectMapEntry const& entry : kx::objectMap) {
        HRESULT const outcome = entry.updateRegistry(RegistryMode::enter);
        if (FAILED(outcome)) return outcome;
    }
    return kx::updateTypeLibraryRegistry(RegistryMode::enter, perUser_);
}

HRESULT CKxJsParserModule::unregisterServer() {
    for (ObjectMapEntry const& entry : kx::objectMap) {
        HRESULT const outcome = entry.updateRegistry(RegistryMode::remove);
        if (FAILED(outcome)) return outcome;
    }
    return kx::updateTypeLibraryRegistry(RegistryMode::remove, perUser_);
}

void CKxJsParserModule::term() {
    for (ObjectMapEntry& entry : kx::objectMap) {
        if (IClassFactory* const factory = entry.classFactory.exchange(nullptr)) {
            factory->Release();
        }
    }
    kx::releaseTypeInfo();
}
