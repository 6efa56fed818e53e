#include "ClassFactory.h"

#include <new>

#include "KxJsParserModule.h"

namespace kx {

IClassFactory* ClassFactory::create(InstanceCreator creator) {
    return new (std::nothrow) ClassFactory(creator);
}

STDMETHODIMP ClassFactory::QueryInterface(REFIID riid, void** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (riid != IID_IUnknown && riid != IID_IClassFactory) return E_NOINTERFACE;
    AddRef();
    *result = static_cast<IClassFactory*>(this);
    return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() {
    ULONG const references = ++references_;
    if (references == 2) theModule.lock();
    return references;
}

STDMETHODIMP_(ULONG) ClassFactory::Release() {
    ULONG const references = --references_;
    if (references == 0) {
        delete this;
    } else if (references == 1) {
        theModule.unlock();
    }
    return references;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObj) {
    if (ppvObj == nullptr) return E_POINTER;
    *ppvObj = nullptr;
    // COM asks for the inner object of an aggregate by IID_IUnknown only.
    if (pUnkOuter != nullptr && riid != IID_IUnknown) return CLASS_E_NOAGGREGATION;
    return creator_(pUnkOuter, riid, ppvObj);
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
    if (lock) {
        theModule.lock();
    } else {
        theModule.unlock();
    }
    return S_OK;
}

}  // namespace kx
