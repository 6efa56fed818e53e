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
    HMODULE module() const { return _mModule; }
    void unload();

  private:
    template <class Function>
    Function entry(char const* name) const;

    HMODULE _mModule;
};

/// Enters the server under test into the registry.
void registerServer();

}  // namespace test
