#include "KxJsParserX.h"

#include <new>

#include "BridgeLoader.h"
#include "KxJsParserModule.h"
#include "StackLimits.h"
#include "Texts.h"

HRESULT KxJsParserX::create(IUnknown* outer, REFIID riid, void** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    kx::Bridge const* bridge = nullptr;
    HRESULT const loaded = kx::loadBridge(&bridge);
    if (FAILED(loaded)) return loaded;

    auto* const object = new (std::nothrow) KxJsParserX(outer, *bridge);
    if (object == nullptr) return E_OUTOFMEMORY;
    HRESULT outcome = object->construct();
    if (SUCCEEDED(outcome)) outcome = object->_mIdentity.QueryInterface(riid, result);
    if (FAILED(outcome)) delete object;
    return outcome;
}

KxJsParserX::KxJsParserX(IUnknown* outer, kx::Bridge const& bridge)
    : _mBridge(bridge), _mIdentity(*this), _mOuter(outer != nullptr ? outer : &_mIdentity) {
    theModule.lock();
}

HRESULT KxJsParserX::construct() {
    kx::StackLimits const stack;
    return kx::asHresult(_mBridge.create(stack.low, stack.high, &_mParser));
}

KxJsParserX::~KxJsParserX() {
    if (_mParser != nullptr) _mBridge.destroy(_mParser);
    theModule.unlock();
}

STDMETHODIMP KxJsParserX::QueryInterface(REFIID riid, void** result) {
    return _mOuter->QueryInterface(riid, result);
}

STDMETHODIMP_(ULONG) KxJsParserX::AddRef() { return _mOuter->AddRef(); }

STDMETHODIMP_(ULONG) KxJsParserX::Release() { return _mOuter->Release(); }

STDMETHODIMP KxJsParserX::Identity::QueryInterface(REFIID riid, void** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    IUnknown* found = nullptr;
    if (riid == IID_IUnknown) {
        found = this;
    } else if (riid == IID_IDispatch || riid == IID_IKxJsParserX) {
        found = &_mObject;
    } else {
        return E_NOINTERFACE;
    }
    found->AddRef();  // of an interface of an inner object: the outer object's count
    *result = found;
    return S_OK;
}

STDMETHODIMP_(ULONG) KxJsParserX::Identity::AddRef() { return ++_mReferences; }

STDMETHODIMP_(ULONG) KxJsParserX::Identity::Release() {
    ULONG const left = --_mReferences;
    if (left == 0) delete &_mObject;
    return left;
}
