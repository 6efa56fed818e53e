// A server without the files that belong beside it: registration works, creation says why not.

#include <string>
#include <windows.h>

#include "support/Check.h"
#include "support/Com.h"
#include "support/Server.h"

using namespace test;

namespace {

/// Copies files of the server's directory into an empty one and gives the server's new path.
std::wstring copyFiles(std::wstring const& directory, std::initializer_list<wchar_t const*> names) {
    std::wstring const from = serverPath().substr(0, serverPath().rfind(L'\\') + 1);
    CreateDirectoryW(directory.c_str(), nullptr);
    for (wchar_t const* name : names) {
        CHECK(CopyFileW((from + name).c_str(), (directory + L"\\" + name).c_str(), FALSE));
    }
    return directory + L"\\KxJsParser.dll";
}

/// Creates an object, checks that nothing came of it, and gives the outcome.
HRESULT createInVain(Server const& server) {
    Pointer<IClassFactory> factory;
    CHECK_EQUAL(S_OK,
                server.getClassObject(CLSID_KxJsParserX, IID_IClassFactory, factory.putVoid()));
    void* object = &factory;
    HRESULT const outcome = factory->CreateInstance(nullptr, IID_IKxJsParserX, &object);
    CHECK(object == nullptr);
    factory.release();
    CHECK_EQUAL(S_OK, server.canUnloadNow());
    return outcome;
}

void withoutTheBridge() {
    Server const server(copyFiles(L"C:\\alone", {L"KxJsParser.dll"}));
    CHECK_EQUAL(S_OK, server.registerServer());
    CHECK_EQUAL(HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND), createInVain(server));
    CHECK_EQUAL(S_OK, server.unregisterServer());
}

void withoutTheLibrary() {
    Server const server(copyFiles(L"C:\\unbridged", {L"KxJsParser.dll", L"kxbridge.dll.so"}));
    CHECK(FAILED(createInVain(server)));  // with an error that is the loader's choice
}

}  // namespace

int main() {
    Apartment const apartment;
    return runCases(
        {{"without the bridge", withoutTheBridge}, {"without the library", withoutTheLibrary}});
}
