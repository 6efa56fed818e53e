// What registration writes into the registry and what removal takes out, line by line.
//
//   RegistrationTest SERVER [awkward]   awkward: from a directory with a name to stumble over

#include <algorithm>
#include <olectl.h>
#include <stdexcept>
#include <string>
#include <vector>
#include <windows.h>

#include "support/Check.h"
#include "support/Com.h"
#include "support/ImportHook.h"
#include "support/RegistryTree.h"
#include "support/Server.h"

using namespace test;

namespace {

std::wstring testedPath;

constexpr wchar_t const* classKey = L"CLSID\\{1D46AEC2-C503-4983-9AB5-183DB6D45D68}";
constexpr wchar_t const* applicationKey = L"AppID\\{75723371-8D99-4CF7-84EB-860F81CE64B6}";
constexpr wchar_t const* libraryKey = L"TypeLib\\{1AC236FC-A95E-4AEA-8B6E-0A1013EF9563}";
constexpr wchar_t const* interfaceKey = L"Interface\\{484C8D5A-6F67-4EEB-A0C8-D165DDDE2F4D}";

RegistryTree readAll() { return readRegistry(L""); }

/// The server's own keys; quicker to read than the whole registry.
RegistryTree readOwn() {
    RegistryTree tree;
    for (wchar_t const* key :
         {applicationKey, L"AppID\\KxJsParser.DLL", classKey, libraryKey, interfaceKey}) {
        tree.merge(readRegistry(key));
    }
    return tree;
}

bool isThere(wchar_t const* key) { return !readRegistry(key).empty(); }

std::wstring directoryOf(std::wstring const& path) { return path.substr(0, path.rfind(L'\\')); }

/// Everything that registration adds: the two scripts' keys, then what the system enters for the
/// type library, with the neutral locale beside its own.
RegistryTree registeredEntries() {
    std::wstring const text = L"1:";
    std::wstring const cls = classKey;
    std::wstring const library = std::wstring(libraryKey) + L"\\1.0";
    std::wstring const iface = interfaceKey;
    std::wstring const marshaller = text + L"{00020424-0000-0000-C000-000000000046}";
    std::wstring const libraryId = text + L"{1AC236FC-A95E-4AEA-8B6E-0A1013EF9563}";
    std::wstring const path = text + testedPath;
    return lowerCase({
        {applicationKey, L""},
        {std::wstring(applicationKey) + L"\\\\", text + L"KxJsParser"},
        {L"AppID\\KxJsParser.DLL", L""},
        {L"AppID\\KxJsParser.DLL\\\\AppID", text + L"{75723371-8D99-4CF7-84EB-860F81CE64B6}"},

        {cls, L""},
        {cls + L"\\\\", text + L"KxJsParserX Class"},
        {cls + L"\\Programmable", L""},
        {cls + L"\\InprocServer32", L""},
        {cls + L"\\InprocServer32\\\\", path},
        {cls + L"\\InprocServer32\\\\ThreadingModel", text + L"Apartment"},
        {cls + L"\\TypeLib", L""},
        {cls + L"\\TypeLib\\\\", libraryId},
        {cls + L"\\Version", L""},
        {cls + L"\\Version\\\\", text + L"1.0"},

        {libraryKey, L""},
        {library, L""},
        {library + L"\\\\", text + L"KxJsParserLib"},
        {library + L"\\409", L""},
        {library + L"\\409\\win64", L""},
        {library + L"\\409\\win64\\\\", path},
        {library + L"\\0", L""},
        {library + L"\\0\\win64", L""},
        {library + L"\\0\\win64\\\\", path},
        {library + L"\\FLAGS", L""},
        {library + L"\\FLAGS\\\\", text + L"8"},
        {library + L"\\HELPDIR", L""},
        {library + L"\\HELPDIR\\\\", text + directoryOf(testedPath)},

        {iface, L""},
        {iface + L"\\\\", text + L"IKxJsParserX"},
        {iface + L"\\ProxyStubClsid", L""},
        {iface + L"\\ProxyStubClsid\\\\", marshaller},
        {iface + L"\\ProxyStubClsid32", L""},
        {iface + L"\\ProxyStubClsid32\\\\", marshaller},
        {iface + L"\\TypeLib", L""},
        {iface + L"\\TypeLib\\\\", libraryId},
        {iface + L"\\TypeLib\\\\Version", text + L"1.0"},
    });
}

std::vector<std::wstring> const nothing;

void registrationAddsItsEntriesAndNoOthers() {
    RegistryTree const before = readAll();
    CHECK(before.size() > 1000);  // a whole registry, not a failed reading
    CHECK_EQUAL(S_OK, Server(testedPath).registerServer());
    CHECK_EQUAL(differences({}, registeredEntries()), differences(before, readAll()));
}

void registrationAgainChangesNothing() {
    RegistryTree const once = readOwn();
    CHECK_EQUAL(S_OK, Server(testedPath).registerServer());
    CHECK_EQUAL(nothing, differences(once, readOwn()));
}

void registrationRecreatesTheClassKey() {
    RegistryTree const clean = readOwn();
    HKEY key = nullptr;
    RegCreateKeyW(HKEY_CLASSES_ROOT, (std::wstring(classKey) + L"\\Left\\Over").c_str(), &key);
    RegCloseKey(key);
    CHECK(!differences(clean, readOwn()).empty());
    CHECK_EQUAL(S_OK, Server(testedPath).registerServer());
    CHECK_EQUAL(nothing, differences(clean, readOwn()));
}

void registeredServerIsFound() {
    Apartment const apartment;
    {
        Parser const parser = createParser();
        std::wstring loaded(MAX_PATH, L'\0');
        loaded.resize(
            GetModuleFileNameW(GetModuleHandleW(L"KxJsParser.dll"), loaded.data(), MAX_PATH));
        CHECK_EQUAL(testedPath, loaded);
        CHECK_EQUAL(L"2", evaluate(parser, L"1+1"));
    }
    for (LCID const locale : {0x409, 0}) {
        Pointer<ITypeLib> library;
        CHECK_EQUAL(S_OK, LoadRegTypeLib(LIBID_KxJsParserLib, 1, 0, locale, library.put()));
    }
}

void removalTakesOutWhatWasAdded() {
    RegistryTree const before = readAll();
    CHECK_EQUAL(S_OK, Server(testedPath).unregisterServer());
    RegistryTree const after = readAll();
    CHECK_EQUAL(differences(registeredEntries(), {}), differences(before, after));
    for (wchar_t const* kept : {L"appid", L"clsid", L"typelib", L"interface"}) {
        CHECK(after.contains(kept));
    }
}

void removalAgainFailsAndChangesNothing() {
    RegistryTree const before = readOwn();
    CHECK(FAILED(Server(testedPath).unregisterServer()));
    CHECK_EQUAL(nothing, differences(before, readOwn()));
}

HRESULT WINAPI registerDenied(ITypeLib*, LPOLESTR, LPOLESTR) { return E_ACCESSDENIED; }
HRESULT WINAPI registerDoubtful(ITypeLib*, LPOLESTR, LPOLESTR) { return S_FALSE; }
HRESULT WINAPI unregisterDenied(REFGUID, WORD, WORD, LCID, SYSKIND) { return E_ACCESSDENIED; }
HRESULT WINAPI unregisterDoubtful(REFGUID, WORD, WORD, LCID, SYSKIND) { return S_FALSE; }

template <class Function>
ImportHook automationHook(Server const& server, char const* name, Function* replacement) {
    return {server.module(), "OLEAUT32.dll", name, reinterpret_cast<void*>(replacement)};
}

void firstFailingStepIsReported() {
    RegistryTree const before = readOwn();
    Server const server(testedPath);
    {
        ImportHook const hook = automationHook(server, "RegisterTypeLib", registerDenied);
        CHECK_EQUAL(E_ACCESSDENIED, server.registerServer());
        CHECK(isThere(classKey));  // the step before was done
        CHECK(!isThere(libraryKey));
    }
    CHECK_EQUAL(S_OK, server.registerServer());
    {
        ImportHook const hook = automationHook(server, "UnRegisterTypeLib", unregisterDenied);
        CHECK_EQUAL(E_ACCESSDENIED, server.unregisterServer());
        CHECK(!isThere(classKey));
    }
    CHECK_EQUAL(S_OK, server.registerServer());
    CHECK_EQUAL(S_OK, server.unregisterServer());
    CHECK_EQUAL(nothing, differences(before, readOwn()));
}

void resultThatIsNoErrorIsPassedOn() {
    Server const server(testedPath);
    {
        ImportHook const hook = automationHook(server, "RegisterTypeLib", registerDoubtful);
        CHECK_EQUAL(S_FALSE, server.registerServer());
    }
    CHECK_EQUAL(S_OK, server.registerServer());
    {
        ImportHook const hook = automationHook(server, "UnRegisterTypeLib", unregisterDoubtful);
        CHECK_EQUAL(S_FALSE, server.unregisterServer());
    }
    CHECK_EQUAL(S_OK, server.registerServer());
    CHECK_EQUAL(S_OK, server.unregisterServer());
}

int loadsToRefuse = 0;

HMODULE WINAPI refuseToLoad(LPCWSTR path) {
    if (loadsToRefuse == 0) return LoadLibraryW(path);
    --loadsToRefuse;
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

/// The script of the application identifier runs first, and its result is not looked at.
void applicationScriptMayFail() {
    Server const server(testedPath);
    ImportHook const hook(server.module(), "KERNEL32.dll", "LoadLibraryW",
                          reinterpret_cast<void*>(&refuseToLoad));
    loadsToRefuse = 1;
    CHECK_EQUAL(S_OK, server.registerServer());
    CHECK(!isThere(applicationKey));
    CHECK(isThere(classKey));
    CHECK_EQUAL(S_OK, server.unregisterServer());

    loadsToRefuse = 2;
    CHECK_EQUAL(HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND), server.registerServer());
    CHECK(!isThere(classKey));
}

/// Copies the server's files where blanks, letters beyond ASCII and an apostrophe are in the way.
std::wstring copyToAwkwardDirectory(std::wstring const& path) {
    std::wstring const parent = L"C:\\kx files";
    std::wstring const directory = parent + L"\\l'\u00e9t\u00e9 \u65e5\u672c";
    CreateDirectoryW(parent.c_str(), nullptr);
    CreateDirectoryW(directory.c_str(), nullptr);
    WIN32_FIND_DATAW file;
    HANDLE search = FindFirstFileW((directoryOf(path) + L"\\*").c_str(), &file);
    if (search == INVALID_HANDLE_VALUE) throw std::runtime_error("no files beside the server");
    do {
        if (file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) continue;
        std::wstring const from = directoryOf(path) + L"\\" + file.cFileName;
        if (!CopyFileW(from.c_str(), (directory + L"\\" + file.cFileName).c_str(), FALSE)) {
            throw std::runtime_error("cannot copy the server");
        }
    } while (FindNextFileW(search, &file));
    FindClose(search);
    return directory + path.substr(path.rfind(L'\\'));
}

}  // namespace

int main(int count, char** arguments) {
    testedPath = serverPath();
    if (count > 2 && std::string(arguments[2]) == "awkward") {
        testedPath = copyToAwkwardDirectory(testedPath);
    }
    // Other clients leave the server registered; where none did, this fails and changes nothing.
    Server(serverPath()).unregisterServer();
    return runCases(
        {{"registration adds its entries and no others", registrationAddsItsEntriesAndNoOthers},
         {"registration again changes nothing", registrationAgainChangesNothing},
         {"registration recreates the class key", registrationRecreatesTheClassKey},
         {"a registered server is found", registeredServerIsFound},
         {"removal takes out what was added", removalTakesOutWhatWasAdded},
         {"removal again fails and changes nothing", removalAgainFailsAndChangesNothing},
         {"the first failing step is reported", firstFailingStepIsReported},
         {"a result that is no error is passed on", resultThatIsNoErrorIsPassedOn},
         {"the application script may fail", applicationScriptMayFail}});
}
