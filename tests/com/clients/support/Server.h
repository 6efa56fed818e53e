#pragma once

#include <string>
#include <windows.h>

namespace test {

/// The path of the server under test: the program's first argument.
std::wstring serverPath();

/// The server as a loaded module, with its entry points.
class Server {
  public:
    explicit Server(std::wstring const& path);
    ~Server() { unload(); }
    Server(Server const&) = delete;
    Server& operator=(Server const&) = delete;

    HRESULT getClassObject(REFCLSID clsid, REFIID iid, void** result) const;
    HRESULT canUnloadNow() const;
    HRESULT registerServer() const;
    HRESULT unregisterServer() const;
    HMODULE module() const { return module_; }
    void unload();

  private:
    template <class Function>
    Function entry(char const* name) const;

    HMODULE module_;
};

/// Enters the server under test into the registry.
void registerServer();

}  // namespace test
