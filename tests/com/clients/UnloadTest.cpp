// The server comes and goes within one process.

#include <string>
#include <windows.h>

#include "support/Check.h"
#include "support/Com.h"
#include "support/ImportHook.h"
#include "support/LateBinding.h"
#include "support/Server.h"

using namespace test;

namespace {

bool isLoaded() { return GetModuleHandleW(L"KxJsParser.dll") != nullptr; }

std::wstring evaluateIn(Server const& server) {
    Pointer<IClassFactory> factory;
    CHECK_EQUAL(S_OK,
                server.getClassObject(CLSID_KxJsParserX, IID_IClassFactory, factory.putVoid()));
    Parser parser;
    CHECK_EQUAL(S_OK, factory->CreateInstance(nullptr, IID_IKxJsParserX, parser.putVoid()));
    CHECK_EQUAL(S_OK, parser->initialize());
    Pointer<IDispatch> late;
    CHECK_EQUAL(S_OK, parser->QueryInterface(IID_IDispatch, late.putVoid()));
    CHECK_EQUAL(4, idOf(late, L"parse"));  // so that the type library is read and given back
    return evaluate(parser, L"LEN('ABC')");
}

void loadingAgainWorks() {
    for (int round = 0; round < 20; ++round) {
        CHECK(!isLoaded());
        Server server(serverPath());
        CHECK(isLoaded());
        CHECK_EQUAL(S_OK, server.canUnloadNow());
        CHECK_EQUAL(L"3", evaluateIn(server));
        CHECK_EQUAL(S_OK, server.canUnloadNow());
        server.unload();
        CHECK(!isLoaded());
    }
}

void loadingUnusedWorks() {
    Server server(serverPath());
    CHECK_EQUAL(S_OK, server.canUnloadNow());
    server.unload();
    CHECK(!isLoaded());
}

/// Nothing of the compiler's runtime is asked for, so the server loads in any process.
void theServerNeedsTheSystemAlone() {
    Server const server(serverPath());
    for (std::string const& name : importedLibraries(server.module())) {
        bool const ofTheSystem = name == "kernel32.dll" || name == "msvcrt.dll" ||
                                 name == "oleaut32.dll" || name == "ole32.dll";
        CHECK_EQUAL(ofTheSystem ? name : "a library of the system", name);
    }
}

void theSystemUnloadsAnUnusedServer() {
    {
        Parser parser = createInitializedParser();
        CoFreeUnusedLibrariesEx(0, 0);
        CoFreeUnusedLibrariesEx(0, 0);
        CHECK(isLoaded());
        CHECK_EQUAL(L"3", evaluate(parser, L"LEN('ABC')"));
    }
    CoFreeUnusedLibrariesEx(0, 0);  // marks the candidates
    CoFreeUnusedLibrariesEx(0, 0);  // lets them go
    CHECK(!isLoaded());
    CHECK_EQUAL(L"3", evaluate(createInitializedParser(), L"LEN('ABC')"));
}

}  // namespace

int main() {
    Apartment const apartment;
    registerServer();
    return runCases({{"loading again works", loadingAgainWorks},
                     {"loading unused works", loadingUnusedWorks},
                     {"the server needs the system alone", theServerNeedsTheSystemAlone},
                     {"the system unloads an unused server", theSystemUnloadsAnUnusedServer}});
}
