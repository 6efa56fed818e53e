#include "Registration.h"

#include "TypeLibrary.h"

namespace kx {

namespace {

constexpr UINT applicationScript = 2000;
constexpr UINT classScript = 2001;

// RegisterTypeLib enters the library under its own locale, and the marshaller looks for it under
// the neutral one, without which an object cannot be made from a multithreaded apartment.
constexpr wchar_t const* neutralLocaleScript =
    L"HKCR\r\n"
    L"{\r\n"
    L"\tNoRemove TypeLib\r\n"
    L"\t{\r\n"
    L"\t\tNoRemove {1AC236FC-A95E-4AEA-8B6E-0A1013EF9563}\r\n"
    L"\t\t{\r\n"
    L"\t\t\tNoRemove 1.0\r\n"
    L"\t\t\t{\r\n"
    L"\t\t\t\tForceRemove 0\r\n"
    L"\t\t\t\t{\r\n"
    L"\t\t\t\t\twin64 = s '%MODULE%'\r\n"
    L"\t\t\t\t}\r\n"
    L"\t\t\t}\r\n"
    L"\t\t}\r\n"
    L"\t}\r\n"
    L"}\r\n";

HRESULT updateNeutralLocale(RegistryMode mode) {
    Registrar registrar;
    HRESULT const opened = registrar.open();
    return SUCCEEDED(opened) ? registrar.runText(neutralLocaleScript, mode) : opened;
}

}  // namespace

HRESULT updateApplicationRegistry(RegistryMode mode) {
    Registrar registrar;
    HRESULT outcome = registrar.open();
    if (SUCCEEDED(outcome)) {
        outcome = registrar.replace(L"APPID", L"{75723371-8D99-4CF7-84EB-860F81CE64B6}");
    }
    return SUCCEEDED(outcome) ? registrar.runResource(applicationScript, mode) : outcome;
}

HRESULT updateClassRegistry(RegistryMode mode) {
    Registrar registrar;
    HRESULT const opened = registrar.open();
    return SUCCEEDED(opened) ? registrar.runResource(classScript, mode) : opened;
}

HRESULT updateTypeLibraryRegistry(RegistryMode mode, bool perUser) {
    if (mode == RegistryMode::enter) {
        HRESULT const outcome = registerTypeLibrary();
        if (FAILED(outcome)) return outcome;
        HRESULT const added = updateNeutralLocale(mode);
        return FAILED(added) ? added : outcome;
    }
    // First the addition: UnRegisterTypeLib leaves the version alone while it has other locales.
    HRESULT const removed = updateNeutralLocale(mode);
    return FAILED(removed) ? removed : unregisterTypeLibrary(perUser);
}

}  // namespace kx
