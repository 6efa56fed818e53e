#include "TypeLibrary.h"

#include <atomic>

#include "KxJsParserLib.h"
#include "ModulePath.h"

namespace kx {

namespace {

std::atomic<ITypeInfo*> keptInfo{nullptr};

HRESULT readTypeInfo(ITypeInfo** info) {
    ITypeLib* library = nullptr;
    HRESULT outcome = ownTypeLibrary(&library);
    if (FAILED(outcome)) return outcome;
    outcome = library->GetTypeInfoOfGuid(IID_IKxJsParserX, info);
    library->Release();
    return outcome;
}

using Unregister = HRESULT(STDAPICALLTYPE*)(REFGUID, WORD, WORD, LCID, SYSKIND);

Unregister unregisterFunction(bool perUser) {
    if (perUser) {
        // Looked up by name: older systems do without it.
        HMODULE const automation = GetModuleHandleW(L"OLEAUT32.DLL");
        FARPROC const found = automation != nullptr
                                  ? GetProcAddress(automation, "UnRegisterTypeLibForUser")
                                  : nullptr;
        if (found != nullptr) return reinterpret_cast<Unregister>(reinterpret_cast<void*>(found));
    }
    return &UnRegisterTypeLib;
}

}  // namespace

HRESULT ownTypeLibrary(ITypeLib** library) {
    WideText path;
    HRESULT const found = modulePath(path);
    return SUCCEEDED(found) ? LoadTypeLibEx(path.get(), REGKIND_NONE, library) : found;
}

HRESULT interfaceTypeInfo(ITypeInfo** info) {
    *info = keptInfo.load(std::memory_order_acquire);
    if (*info == nullptr) {
        ITypeInfo* read = nullptr;
        HRESULT const outcome = readTypeInfo(&read);
        if (FAILED(outcome)) return outcome;
        if (keptInfo.compare_exchange_strong(*info, read, std::memory_order_acq_rel)) {
            *info = read;
        } else {
            read->Release();  // another thread was faster
        }
    }
    (*info)->AddRef();
    return S_OK;
}

void releaseTypeInfo() {
    if (ITypeInfo* const info = keptInfo.exchange(nullptr)) info->Release();
}

HRESULT registerTypeLibrary() {
    WideText path;
    HRESULT outcome = modulePath(path);
    if (FAILED(outcome)) return outcome;
    ITypeLib* library = nullptr;
    outcome = ownTypeLibrary(&library);
    if (FAILED(outcome)) return outcome;
    outcome = RegisterTypeLib(library, path.get(), nullptr);
    library->Release();
    return outcome;
}

HRESULT unregisterTypeLibrary(bool perUser) {
    ITypeLib* library = nullptr;
    HRESULT outcome = ownTypeLibrary(&library);
    if (FAILED(outcome)) return outcome;
    TLIBATTR* attributes = nullptr;
    outcome = library->GetLibAttr(&attributes);
    if (SUCCEEDED(outcome)) {
        outcome = unregisterFunction(perUser)(attributes->guid, attributes->wMajorVerNum,
                                              attributes->wMinorVerNum, attributes->lcid,
                                              attributes->syskind);
        library->ReleaseTLibAttr(attributes);
    }
    library->Release();
    return outcome;
}

}  // namespace kx
