#include "Server.h"

#include <stdexcept>

namespace test {

std::wstring serverPath() {
    int count = 0;
    LPWSTR* const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::wstring path = count > 1 ? arguments[1] : L"";
    LocalFree(arguments);
    if (path.empty()) throw std::runtime_error("the first argument is the path of the server");
    return path;
}

Server::Server(std::wstring const& path) : module_(LoadLibraryW(path.c_str())) {
    if (module_ == nullptr) {
        throw std::runtime_error("cannot load the server: " + std::to_string(GetLastError()));
    }
}

void Server::unload() {
    if (module_ != nullptr) FreeLibrary(module_);
    module_ = nullptr;
}

template <class Function>
Function Server::entry(char const* name) const {
    FARPROC const found = GetProcAddress(module_, name);
    if (found == nullptr) throw std::runtime_error(std::string("no entry point ") + name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

HRESULT Server::getClassObject(REFCLSID clsid, REFIID iid, void** result) const {
    using Function = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    return entry<Function>("DllGetClassObject")(clsid, iid, result);
}

HRESULT Server::canUnloadNow() const { return entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }

HRESULT Server::registerServer() const { return entry<HRESULT(WINAPI*)()>("DllRegisterServer")(); }

HRESULT Server::unregisterServer() const {
    return entry<HRESULT(WINAPI*)()>("DllUnregisterServer")();
}

void registerServer() {
    HRESULT const outcome = Server(serverPath()).registerServer();
    if (outcome != S_OK) {
        throw std::runtime_error("cannot register the server: " + std::to_string(outcome));
    }
}

}  // namespace test
