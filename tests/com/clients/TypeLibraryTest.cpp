// The type library and the other resources inside the server, read back from the file.

#include <string>
#include <vector>
#include <windows.h>

#include "TypeDescription.h"
#include "support/Check.h"
#include "support/Com.h"
#include "support/Server.h"

using namespace test;

namespace {

std::wstring guidText(REFGUID guid) {
    std::wstring text(39, L'\0');  // with the zero at its end
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    text.pop_back();
    return text;
}

/// From the file alone: this program has not loaded the server then.
Pointer<ITypeLib> openLibrary() {
    Pointer<ITypeLib> library;
    CHECK_EQUAL(S_OK, LoadTypeLibEx(serverPath().c_str(), REGKIND_NONE, library.put()));
    CHECK(GetModuleHandleW(L"KxJsParser.dll") == nullptr);
    return library;
}

Pointer<ITypeInfo> openType(wchar_t const* guid) {
    GUID id;
    CLSIDFromString(guid, &id);
    Pointer<ITypeInfo> info;
    CHECK_EQUAL(S_OK, openLibrary()->GetTypeInfoOfGuid(id, info.put()));
    return info;
}

constexpr wchar_t const* interfaceId = L"{484C8D5A-6F67-4EEB-A0C8-D165DDDE2F4D}";
constexpr wchar_t const* classId = L"{1D46AEC2-C503-4983-9AB5-183DB6D45D68}";
constexpr wchar_t const* enumerationId = L"{49958C79-AFBB-41E8-B88F-24FAB39C4846}";

/// The table of methods behind the dual interface.
Pointer<ITypeInfo> openMethodTable() {
    Pointer<ITypeInfo> const dispatch = openType(interfaceId);
    HREFTYPE table = 0;
    CHECK_EQUAL(S_OK, dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &table));
    Pointer<ITypeInfo> info;
    CHECK_EQUAL(S_OK, dispatch->GetRefTypeInfo(table, info.put()));
    return info;
}

void libraryIsIdentified() {
    Pointer<ITypeLib> const library = openLibrary();
    TLIBATTR* attributes = nullptr;
    library->GetLibAttr(&attributes);
    CHECK_EQUAL(L"{1AC236FC-A95E-4AEA-8B6E-0A1013EF9563}", guidText(attributes->guid));
    CHECK_EQUAL(1, attributes->wMajorVerNum);
    CHECK_EQUAL(0, attributes->wMinorVerNum);
    CHECK_EQUAL(0x409, attributes->lcid);
    CHECK_EQUAL(SYS_WIN64, attributes->syskind);
    library->ReleaseTLibAttr(attributes);
    Bstr name;
    library->GetDocumentation(-1, name.put(), nullptr, nullptr, nullptr);
    CHECK_EQUAL(L"KxJsParserLib", name.text());
    CHECK_EQUAL(3, library->GetTypeInfoCount());
}

WORD flagsOf(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    WORD const flags = attributes->wTypeFlags;
    info->ReleaseTypeAttr(attributes);
    return flags;
}

TYPEKIND kindOf(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    TYPEKIND const kind = attributes->typekind;
    info->ReleaseTypeAttr(attributes);
    return kind;
}

void interfaceIsDual() {
    Pointer<ITypeInfo> const info = openType(interfaceId);
    CHECK_EQUAL(L"IKxJsParserX", nameOf(info.get()));
    CHECK_EQUAL(TKIND_DISPATCH, kindOf(info.get()));
    WORD const wanted = TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE;
    CHECK_EQUAL(wanted, flagsOf(info.get()) & wanted);

    Pointer<ITypeInfo> const table = openMethodTable();
    CHECK_EQUAL(L"IKxJsParserX", nameOf(table.get()));
    CHECK_EQUAL(TKIND_INTERFACE, kindOf(table.get()));
    WORD const wantedOfTable = wanted | TYPEFLAG_FOLEAUTOMATION;
    CHECK_EQUAL(wantedOfTable, flagsOf(table.get()) & wantedOfTable);
}

void interfaceDerivesFromTheAutomationBase() {
    Pointer<ITypeInfo> const table = openMethodTable();
    HREFTYPE base = 0;
    CHECK_EQUAL(S_OK, table->GetRefTypeOfImplType(0, &base));
    Pointer<ITypeInfo> info;
    CHECK_EQUAL(S_OK, table->GetRefTypeInfo(base, info.put()));
    CHECK_EQUAL(L"IDispatch", nameOf(info.get()));
    Pointer<ITypeLib> home;
    UINT index = 0;
    info->GetContainingTypeLib(home.put(), &index);
    TLIBATTR* attributes = nullptr;
    home->GetLibAttr(&attributes);
    CHECK_EQUAL(L"{00020430-0000-0000-C000-000000000046}", guidText(attributes->guid));  // stdole
    CHECK_EQUAL(2, attributes->wMajorVerNum);
    home->ReleaseTLibAttr(attributes);
}

void methodsAreAsPublished() {
    std::vector<std::wstring> const published = {
        LR"|(1 initialize() "Initialize the parser")|",
        LR"|(2 variableExist(in BSTR strVarName, out retval VARIANT_BOOL* pbRetVal) "Check if a variable existe inside parser")|",
        LR"|(3 getVariableType(in BSTR strVarName, out retval TypeOfVariable* pTypeOfVariable) "Get the type of a variable")|",
        LR"|(4 parse(in BSTR strSource, out BSTR* pstrError, out retval LONG* plScriptIndex) "Parse a Javascript source")|",
        LR"|(5 execute(in LONG lScriptIndex, out BSTR* pstrError, out retval BSTR* pstrRetVal) "Execute the script previously parsed")|",
        LR"|(6 addSetVariableString(in BSTR strVarName, in BSTR strValue, out retval VARIANT_BOOL* pbRetVal) "Add or set a String variable in parser")|",
        LR"|(7 addSetVariableLong(in BSTR strVarName, in LONG lValue, out retval VARIANT_BOOL* pbRetVal) "Add or set an integer variable in parser")|",
        LR"|(8 addSetVariableDouble(in BSTR strVarName, in DOUBLE dValue, out retval VARIANT_BOOL* pbRetVal) "Add or set a float variable in parser")|",
        LR"|(9 addSetVariableBool(in BSTR strVarName, in VARIANT_BOOL bValue, out retval VARIANT_BOOL* pbRetVal) "Add or set a boolean variable in parser")|",
        LR"|(10 convert(in BSTR strFormula, out retval BSTR* pstrRetVal) "Convert a KxParser formula to KxJsParser formula")|",
        LR"|(11 getUserDocumentationOnePage(in VARIANT_BOOL bStandalone, in VARIANT_BOOL bWithExample, out retval BSTR* pstrRetVal) "Get HTML documentation for all functions (One page for each functions)")|",
        LR"|(12 getUserDocumentationManyPages(out retval VARIANT* pRetVal) "Get HTML documentation for all functions (One page per function)")|",
        LR"|(13 extractVariable(in BSTR strSource, out BSTR* pstrError, out retval VARIANT* pRetVal) "Extract variable(s) in the source")|",
        LR"|(14 reset() "Reset the parser object")|",
        LR"|(15 getMathFunctions(in VARIANT* MathFunctionsVector, out retval INT* piCount) "Return the possible Math Functions")|",
        LR"|(16 getStringFunctions(in VARIANT* StringFunctionsVector, out retval INT* piCount) "Return the possible String Functions")|",
        LR"|(17 getOtherFunctions(in VARIANT* OtherFunctionsVector, out retval INT* piCount) "Return the possible Other Functions")|",
    };
    std::vector<std::wstring> const methods = describeMethods(openMethodTable().get());
    CHECK_EQUAL(published.size(), methods.size());
    for (std::size_t i = 0; i < published.size() && i < methods.size(); ++i) {
        CHECK_EQUAL(published[i], methods[i]);
    }
}

void methodsFollowThoseOfTheBase() {
    Pointer<ITypeInfo> const table = openMethodTable();
    constexpr SHORT baseMethods = 7;
    for (SHORT i = 0; i < 17; ++i) {
        FUNCDESC* method = nullptr;
        CHECK_EQUAL(S_OK, table->GetFuncDesc(static_cast<UINT>(i), &method));
        CHECK_EQUAL((baseMethods + i) * static_cast<int>(sizeof(void*)), method->oVft);
        CHECK_EQUAL(INVOKE_FUNC, method->invkind);
        table->ReleaseFuncDesc(method);
    }
}

void enumerationIsAsPublished() {
    Pointer<ITypeInfo> const info = openType(enumerationId);
    CHECK_EQUAL(L"TypeOfVariable", nameOf(info.get()));
    CHECK_EQUAL(TKIND_ENUM, kindOf(info.get()));
    std::vector<std::wstring> const published = {
        L"TYPE_OF_VAR_UNDEFINED = 0", L"TYPE_OF_VAR_LONG = 1", L"TYPE_OF_VAR_DOUBLE = 2",
        L"TYPE_OF_VAR_STRING = 3", L"TYPE_OF_VAR_BOOLEAN = 4"};
    CHECK_EQUAL(published, describeMembers(info.get()));
}

void classIsCreatable() {
    Pointer<ITypeInfo> const info = openType(classId);
    CHECK_EQUAL(L"KxJsParserX", nameOf(info.get()));
    CHECK_EQUAL(TKIND_COCLASS, kindOf(info.get()));
    CHECK(flagsOf(info.get()) & TYPEFLAG_FCANCREATE);
    INT flags = 0;
    info->GetImplTypeFlags(0, &flags);
    CHECK_EQUAL(IMPLTYPEFLAG_FDEFAULT, flags);
    HREFTYPE reference = 0;
    Pointer<ITypeInfo> implemented;
    info->GetRefTypeOfImplType(0, &reference);
    info->GetRefTypeInfo(reference, implemented.put());
    CHECK_EQUAL(L"IKxJsParserX", nameOf(implemented.get()));
}

std::string resource(wchar_t const* type, WORD id) {
    HMODULE const file = LoadLibraryExW(serverPath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    HRSRC found = FindResourceW(file, MAKEINTRESOURCEW(id), type);
    if (found == nullptr) return "no such resource";
    auto const* const data = static_cast<char const*>(LockResource(LoadResource(file, found)));
    std::string content(data, SizeofResource(file, found));
    FreeLibrary(file);
    return content;
}

void typeLibraryIsTheFirstResource() { CHECK_EQUAL("MSFT", resource(L"TYPELIB", 1).substr(0, 4)); }

void registryScriptsAreCarriedVerbatim() {
    CHECK_EQUAL(
        "HKCR\r\n"
        "{\r\n"
        "\tNoRemove AppID\r\n"
        "\t{\r\n"
        "\t\t'%APPID%' = s 'KxJsParser'\r\n"
        "\t\t\t\t'KxJsParser.DLL'\r\n"
        "\t\t\t\t{\r\n"
        "\t\t\tval AppID = s '%APPID%'\r\n"
        "\t\t}\r\n"
        "\t}\r\n"
        "}\r\n",
        resource(L"REGISTRY", 2000));
    CHECK_EQUAL(
        "HKCR\r\n"
        "{\r\n"
        "\tNoRemove CLSID\r\n"
        "\t{\r\n"
        "\t\tForceRemove {1D46AEC2-C503-4983-9AB5-183DB6D45D68} = s 'KxJsParserX Class'\r\n"
        "\t\t{\r\n"
        "\t\t\tForceRemove Programmable\r\n"
        "\t\t\tInprocServer32 = s '%MODULE%'\r\n"
        "\t\t\t{\r\n"
        "\t\t\t\tval ThreadingModel = s 'Apartment'\r\n"
        "\t\t\t}\r\n"
        "\t\t\tTypeLib = s '{1AC236FC-A95E-4AEA-8B6E-0A1013EF9563}'\r\n"
        "\t\t\tVersion = s '1.0'\r\n"
        "\t\t}\r\n"
        "\t}\r\n"
        "}\r\n",
        resource(L"REGISTRY", 2001));
}

}  // namespace

int main() {
    return runCases(
        {{"the library has its identity", libraryIsIdentified},
         {"the interface is dual", interfaceIsDual},
         {"the interface derives from the automation base", interfaceDerivesFromTheAutomationBase},
         {"the methods are as published", methodsAreAsPublished},
         {"the methods follow those of the base", methodsFollowThoseOfTheBase},
         {"the enumeration is as published", enumerationIsAsPublished},
         {"the class is creatable", classIsCreatable},
         {"the type library is the first resource", typeLibraryIsTheFirstResource},
         {"the registry scripts are carried verbatim", registryScriptsAreCarriedVerbatim}});
}
