#pragma once

#include <atomic>
#include <windows.h>

namespace kx {

/// Makes an object, stand-alone or as the inner object of `outer`, and returns its interface
/// `riid`.
using InstanceCreator = HRESULT (*)(IUnknown* outer, REFIID riid, void** result);

/// The class factory of one class, cached by the module, which holds one reference for its own
/// life. Clients' references are the further ones: the first locks the module, and the return of
/// the last unlocks it.
class ClassFactory final : public IClassFactory {
  public:
    /// Makes a factory without references; null where memory ends.
    static IClassFactory* create(InstanceCreator creator);

    STDMETHODIMP QueryInterface(REFIID riid, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObj) override;
    STDMETHODIMP LockServer(BOOL lock) override;

  private:
    explicit ClassFactory(InstanceCreator creator) : creator_(creator) {}
    ~ClassFactory() = default;

    InstanceCreator creator_;
    std::atomic<ULONG> references_{0};
};

}  // namespace kx
