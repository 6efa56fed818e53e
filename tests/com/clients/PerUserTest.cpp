// The module's registration for the current user alone. No entry point asks for it, so the
// module's sources are part of this program, which registers itself.

#include <string>
#include <vector>
#include <windows.h>

#include "KxJsParserModule.h"
#include "support/Check.h"
#include "support/Com.h"
#include "support/ImportHook.h"

using namespace test;

namespace {

struct Removal {
    GUID library;
    WORD major;
    WORD minor;
    LCID locale;
    SYSKIND system;
};
std::vector<Removal> removals;
std::vector<std::string> lookups;
bool functionExists = true;

HRESULT WINAPI removeForUser(REFGUID library, WORD major, WORD minor, LCID locale, SYSKIND system) {
    removals.push_back({library, major, minor, locale, system});
    return UnRegisterTypeLib(library, major, minor, locale, system);
}

using LookUp = FARPROC(WINAPI*)(HMODULE, LPCSTR);

/// What this program's own import was before it was replaced.
LookUp originalLookUp = nullptr;

FARPROC WINAPI lookUp(HMODULE module, LPCSTR name) {
    if (module != GetModuleHandleW(L"OLEAUT32.DLL")) return originalLookUp(module, name);
    lookups.emplace_back(name);
    return functionExists ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&removeForUser))
                          : nullptr;
}

bool isRegistered() {
    Pointer<ITypeLib> library;
    return SUCCEEDED(LoadRegTypeLib(LIBID_KxJsParserLib, 1, 0, 0x409, library.put()));
}

/// Registers and removes, with the looking up of functions watched.
void registerAndRemove(bool perUser) {
    ImportHook const hook(GetModuleHandleW(nullptr), "KERNEL32.dll", "GetProcAddress",
                          reinterpret_cast<void*>(&lookUp));
    originalLookUp = reinterpret_cast<LookUp>(hook.original());
    removals.clear();
    lookups.clear();
    theModule.setPerUserRegistration(perUser);
    CHECK_EQUAL(S_OK, theModule.registerServer());
    CHECK(isRegistered());
    CHECK_EQUAL(S_OK, theModule.unregisterServer());
    CHECK(!isRegistered());
}

void removalForTheUserUsesItsFunction() {
    functionExists = true;
    registerAndRemove(true);
    CHECK_EQUAL(std::vector<std::string>{"UnRegisterTypeLibForUser"}, lookups);
    CHECK_EQUAL(1, removals.size());
    if (removals.empty()) return;
    CHECK(removals[0].library == LIBID_KxJsParserLib);
    CHECK_EQUAL(1, removals[0].major);
    CHECK_EQUAL(0, removals[0].minor);
    CHECK_EQUAL(0x409, removals[0].locale);
    CHECK_EQUAL(SYS_WIN64, removals[0].system);
}

void removalForTheUserDoesWithoutTheFunction() {
    functionExists = false;
    registerAndRemove(true);
    CHECK_EQUAL(1, lookups.size());
    CHECK_EQUAL(0, removals.size());
}

void removalForAllLooksNothingUp() {
    functionExists = true;
    registerAndRemove(false);
    CHECK_EQUAL(0, lookups.size());
    CHECK_EQUAL(0, removals.size());
}

}  // namespace

int main() {
    Apartment const apartment;
    return runCases({{"removal for the user uses its function", removalForTheUserUsesItsFunction},
                     {"removal for the user does without the function",
                      removalForTheUserDoesWithoutTheFunction},
                     {"removal for all looks nothing up", removalForAllLooksNothingUp}});
}
