#include "BridgeLoader.h"

#include <atomic>

#include "ModulePath.h"

namespace kx {

namespace {

HRESULT lastError() {
    HRESULT const result = HRESULT_FROM_WIN32(GetLastError());
    return FAILED(result) ? result : E_FAIL;
}

/// The full path keeps the search order of the process out of it: the bridge of this module is
/// the one in its own directory.
HRESULT loadBridgeModule(HMODULE& bridge) {
    WideText path;
    HRESULT const found = fileBesideModule(L"kxbridge.dll.so", path);
    if (FAILED(found)) return found;
    bridge = LoadLibraryW(path.get());
    return bridge != nullptr ? S_OK : lastError();
}

}  // namespace

HRESULT loadBridge(Bridge const** bridge) {
    // Two threads may both load: they get the same table, and one reference more does no harm.
    static std::atomic<Bridge const*> loaded{nullptr};
    *bridge = loaded.load(std::memory_order_acquire);
    if (*bridge != nullptr) return S_OK;

    HMODULE library = nullptr;
    HRESULT const result = loadBridgeModule(library);
    if (FAILED(result)) return result;
    auto* const entry = reinterpret_cast<decltype(&kxJsParserBridge)>(
        reinterpret_cast<void*>(GetProcAddress(library, "kxJsParserBridge")));
    if (entry == nullptr) return lastError();
    *bridge = entry(bridgeVersion);
    if (*bridge == nullptr) return HRESULT_FROM_WIN32(ERROR_REVISION_MISMATCH);
    loaded.store(*bridge, std::memory_order_release);
    return S_OK;
}

}  // namespace kx
