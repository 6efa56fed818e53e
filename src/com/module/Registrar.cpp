#include "Registrar.h"

#include "IRegistrar.h"
#include "ModulePath.h"

namespace kx {

namespace {

/// Makes the interpreter by the function of its library: the class factory of the same would need
/// an initialised COM library, which callers of the entry points need not have.
HRESULT createRegistrar(IRegistrar** registrar) {
    // Stays loaded, as a library that other code of the process may have come to use.
    HMODULE const atl = LoadLibraryW(L"atl100.dll");
    if (atl == nullptr) return HRESULT_FROM_WIN32(GetLastError());
    using Create = HRESULT(STDAPICALLTYPE*)(IRegistrar**);
    auto* const create = reinterpret_cast<Create>(
        reinterpret_cast<void*>(GetProcAddress(atl, "AtlCreateRegistrar")));
    return create != nullptr ? create(registrar) : HRESULT_FROM_WIN32(GetLastError());
}

}  // namespace

Registrar::~Registrar() {
    if (registrar_ != nullptr) registrar_->Release();
}

HRESULT Registrar::open() {
    WideText path;
    HRESULT outcome = modulePath(path);
    if (FAILED(outcome)) return outcome;
    // Scripts quote the path in apostrophes, and an apostrophe in a directory's name would end
    // the quotation.
    WideText quoted;
    outcome = doubleApostrophes(path.get(), quoted);
    if (FAILED(outcome)) return outcome;
    outcome = createRegistrar(&registrar_);
    return SUCCEEDED(outcome) ? replace(L"MODULE", quoted.get()) : outcome;
}

HRESULT Registrar::replace(wchar_t const* name, wchar_t const* value) {
    return registrar_->AddReplacement(name, value);
}

HRESULT Registrar::runResource(UINT id, RegistryMode mode) {
    WideText path;
    HRESULT const found = modulePath(path);
    if (FAILED(found)) return found;
    return mode == RegistryMode::enter
               ? registrar_->ResourceRegister(path.get(), id, L"REGISTRY")
               : registrar_->ResourceUnregister(path.get(), id, L"REGISTRY");
}

HRESULT Registrar::runText(wchar_t const* script, RegistryMode mode) {
    return mode == RegistryMode::enter ? registrar_->StringRegister(script)
                                       : registrar_->StringUnregister(script);
}

}  // namespace kx
