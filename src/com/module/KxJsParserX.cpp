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
    if (SUCCEEDED(outcome)) outcome = object->identity_.QueryInterface(riid, result);
    if (FAILED(outcome)) delete object;
    return outcome;
}

KxJsParserX::KxJsParserX(IUnknown* outer, kx::Bridge const& bridge)
    : bridge_(bridge), identity_(*this), outer_(outer != nullptr ? outer : &identity_) {
    theModule.lock();
}

HRESULT KxJsParserX::construct() {
    kx::StackLimits const stack;
    return kx::asHresult(bridge_.create(stack.low, stack.high, &parser_));
}

KxJsParserX::~KxJsParserX() {
    if (parser_ != nullptr) bridge_.destroy(parser_);
    theModule.unlock();
}

STDMETHODIMP KxJsParserX::QueryInterface(REFIID riid, void** result) {
    return outer_->QueryInterface(riid, result);
}

STDMETHODIMP_(ULONG) KxJsParserX::AddRef() { return outer_->AddRef(); }

STDMETHODIMP_(ULONG) KxJsParserX::Release() { return outer_->Release(); }

STDMETHODIMP KxJsParserX::Identity::QueryInterface(REFIID riid, void** result) {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    IUnknown* found = nullptr;
    if (riid == IID_IUnknown) {
        found = this;
    } else if (riid == IID_IDispatch || riid == IID_IKxJsParserX) {
        found = &object_;
    } else {
        return E_NOINTERFACE;
    }
    found->AddRef();  // of an interface of an inner object: the outer object's count
    *result = found;
    return S_OK;
}

STDMETHODIMP_(ULONG) KxJsParserX::Identity::AddRef() { return ++references_; }

STDMETHODIMP_(ULONG) KxJsParserX::Identity::Release() {
    ULONG const left = --references_;
    if (left == 0) delete &object_;
    return left;
}
