// A late-bound client: names and arguments through IDispatch, as scripts pass them.

#include <map>
#include <string>
#include <vector>
#include <windows.h>

#include "support/ArrayReader.h"
#include "support/Check.h"
#include "support/LateBinding.h"
#include "support/Server.h"

using namespace test;

namespace {

std::wstring textOf(VARIANT const& variant) {
    CHECK_EQUAL(VT_BSTR, variant.vt);
    return variant.vt == VT_BSTR ? std::wstring(variant.bstrVal, SysStringLen(variant.bstrVal))
                                 : L"(no text)";
}

/// The value of a variable and its type, as scripts see them.
std::wstring valueOf(Dispatch const& parser, std::wstring const& name) {
    Bstr const source(name + L"+' '+typeof " + name);
    Variant error;
    Variant index;
    CHECK_EQUAL(S_OK, call(parser, L"parse", {argument(source), variableArgument(error)}, &index));
    Variant value;
    CHECK_EQUAL(S_OK,
                call(parser, L"execute", {argument(index.lVal), variableArgument(error)}, &value));
    CHECK_EQUAL(L"", textOf(error));
    return textOf(value);
}

void namesGiveTheIdentifiers() {
    Dispatch const parser = createLateParser();
    std::vector<std::wstring> const names = {L"initialize",
                                             L"variableExist",
                                             L"getVariableType",
                                             L"parse",
                                             L"execute",
                                             L"addSetVariableString",
                                             L"addSetVariableLong",
                                             L"addSetVariableDouble",
                                             L"addSetVariableBool",
                                             L"convert",
                                             L"getUserDocumentationOnePage",
                                             L"getUserDocumentationManyPages",
                                             L"extractVariable",
                                             L"reset",
                                             L"getMathFunctions",
                                             L"getStringFunctions",
                                             L"getOtherFunctions"};
    for (std::size_t i = 0; i < names.size(); ++i) CHECK_EQUAL(i + 1, idOf(parser, names[i]));
    CHECK_EQUAL(2, idOf(parser, L"VARIABLEEXIST"));  // scripts write names in any case
    CHECK_EQUAL(DISPID_UNKNOWN, idOf(parser, L"noSuchMethod"));
}

void parametersHaveNames() {
    Dispatch const parser = createLateParser();
    std::wstring method = L"parse";
    std::wstring source = L"strSource";
    std::wstring error = L"pstrError";
    std::vector<LPOLESTR> names = {method.data(), source.data(), error.data()};
    std::vector<DISPID> ids(3);
    CHECK_EQUAL(S_OK, parser->GetIDsOfNames(IID_NULL, names.data(), 3, 0x409, ids.data()));
    CHECK_EQUAL(4, ids[0]);
    CHECK_EQUAL(0, ids[1]);
    CHECK_EQUAL(1, ids[2]);
}

void typeInformationIsOffered() {
    Dispatch const parser = createLateParser();
    UINT count = 0;
    CHECK_EQUAL(S_OK, parser->GetTypeInfoCount(&count));
    CHECK_EQUAL(1, count);
    Pointer<ITypeInfo> info;
    CHECK_EQUAL(S_OK, parser->GetTypeInfo(0, 0x409, info.put()));
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    CHECK(attributes->guid == IID_IKxJsParserX);
    info->ReleaseTypeAttr(attributes);
    CHECK_EQUAL(DISP_E_BADINDEX, parser->GetTypeInfo(1, 0x409, info.put()));
    CHECK(!info);
    CHECK_EQUAL(E_POINTER, parser->GetTypeInfo(0, 0x409, nullptr));
    CHECK_EQUAL(E_POINTER, parser->GetTypeInfoCount(nullptr));
}

void everyMethodCanBeCalled() {
    Dispatch const parser = createLateParser();
    Bstr const name(L"A");
    Variant result;
    CHECK_EQUAL(S_OK, call(parser, L"initialize", {}));
    CHECK_EQUAL(S_OK, call(parser, L"variableExist", {argument(name)}, &result));
    CHECK_EQUAL(VT_BOOL, result.vt);
    CHECK_EQUAL(VARIANT_FALSE, result.boolVal);

    Bstr const text(L"a text");
    CHECK_EQUAL(S_OK, call(parser, L"addSetVariableString", {argument(name), argument(text)}));
    CHECK_EQUAL(L"a text string", valueOf(parser, L"A"));
    CHECK_EQUAL(S_OK, call(parser, L"addSetVariableDouble", {argument(name), argument(1.5)}));
    CHECK_EQUAL(L"1.5 number", valueOf(parser, L"A"));
    CHECK_EQUAL(S_OK, call(parser, L"addSetVariableBool", {argument(name), argument(true)}));
    CHECK_EQUAL(L"true boolean", valueOf(parser, L"A"));
    CHECK_EQUAL(S_OK, call(parser, L"addSetVariableBool", {argument(name), argument(false)}));
    CHECK_EQUAL(L"false boolean", valueOf(parser, L"A"));
    CHECK_EQUAL(S_OK, call(parser, L"addSetVariableLong", {argument(name), argument(-7L)}));
    CHECK_EQUAL(L"-7 number", valueOf(parser, L"A"));
    CHECK_EQUAL(S_OK, call(parser, L"variableExist", {argument(name)}, &result));
    CHECK_EQUAL(VARIANT_TRUE, result.boolVal);
    CHECK_EQUAL(S_OK, call(parser, L"addSetVariableLong", {argument(name), argument(5L)}, &result));
    CHECK_EQUAL(VT_BOOL, result.vt);
    CHECK_EQUAL(VARIANT_TRUE, result.boolVal);
    CHECK_EQUAL(S_OK, call(parser, L"getVariableType", {argument(name)}, &result));
    CHECK_EQUAL(VT_I4, result.vt);
    CHECK_EQUAL(TYPE_OF_VAR_LONG, result.lVal);

    Bstr const formula(L"IIF(A>2,'OK','KO')");
    Variant script;
    CHECK_EQUAL(S_OK, call(parser, L"convert", {argument(formula)}, &script));
    BSTR error = nullptr;
    CHECK_EQUAL(S_OK,
                call(parser, L"parse", {argument(script.bstrVal), textReference(error)}, &result));
    CHECK_EQUAL(VT_I4, result.vt);
    CHECK_EQUAL(5, result.lVal);  // behind the five scripts that read the values
    CHECK(error != nullptr);
    SysFreeString(error);
    error = nullptr;
    CHECK_EQUAL(S_OK, call(parser, L"execute", {argument(5L), textReference(error)}, &result));
    CHECK_EQUAL(L"OK", textOf(result));
    SysFreeString(error);
    VariantClear(&result);
    CHECK_EQUAL(S_OK, call(parser, L"reset", {}));
    CHECK_EQUAL(S_OK, call(parser, L"variableExist", {argument(name)}, &result));
    CHECK_EQUAL(VARIANT_FALSE, result.boolVal);
}

void documentsAndArraysComeBack() {
    Dispatch const parser = createLateParser();
    Variant page;
    CHECK_EQUAL(S_OK, call(parser, L"getUserDocumentationOnePage",
                           {argument(true), argument(false)}, &page));
    CHECK_EQUAL(L"<!doctype html>", textOf(page).substr(0, 15));
    Variant pages;
    CHECK_EQUAL(S_OK, call(parser, L"getUserDocumentationManyPages", {}, &pages));
    CHECK_SHAPE(pages, 63, 2);
    std::map<std::wstring, LONG> const catalogues = {
        {L"getMathFunctions", 14}, {L"getStringFunctions", 40}, {L"getOtherFunctions", 9}};
    for (auto const& [method, size] : catalogues) {
        Variant array;
        CHECK_EQUAL(S_OK, call(parser, method, {variableArgument(array)}));
        CHECK_SHAPE(array, size, size);
    }
}

/// A variable of a script, passed for an error text.
void variablesReceiveTheErrorTexts() {
    Dispatch const parser = createLateParser();
    Variant variable;
    Variant result;
    Bstr const wrong(L"1+");
    CHECK_EQUAL(S_OK,
                call(parser, L"parse", {argument(wrong), variableArgument(variable)}, &result));
    CHECK_EQUAL(-1, result.lVal);
    CHECK_EQUAL(L"Error in line: 1\r\n", textOf(variable).substr(0, 18));

    Bstr const right(L"1+1");
    CHECK_EQUAL(S_OK,
                call(parser, L"parse", {argument(right), variableArgument(variable)}, &result));
    CHECK_EQUAL(0, result.lVal);
    CHECK_EQUAL(L"", textOf(variable));  // the text before is gone

    CHECK_EQUAL(S_OK,
                call(parser, L"execute", {argument(9L), variableArgument(variable)}, &result));
    CHECK_EQUAL(L"invalid vector<T> subscript", textOf(variable));
    CHECK_EQUAL(L"", textOf(result));
    VariantClear(&result);

    CHECK_EQUAL(S_OK, call(parser, L"extractVariable",
                           {argument(wrong), variableArgument(variable)}, &result));
    CHECK_EQUAL(L"Error in line: 1\r\n", textOf(variable).substr(0, 18));
    CHECK_SHAPE(result, 0);
}

void variablesOfAnyTypeReceiveTheErrorTexts() {
    Dispatch const parser = createLateParser();
    Bstr const wrong(L"1+");
    for (VARTYPE const type : {VT_EMPTY, VT_NULL, VT_I4, VT_BSTR, VT_R8}) {
        Variant variable;
        variable.vt = type;
        if (type == VT_BSTR) variable.bstrVal = SysAllocString(L"earlier");
        CHECK_EQUAL(S_OK, call(parser, L"parse", {argument(wrong), variableArgument(variable)}));
        CHECK_EQUAL(L"Error in line: 1\r\n", textOf(variable).substr(0, 18));
    }
}

void oneVariableMayBeSourceAndErrorText() {
    Dispatch const parser = createLateParser();
    Variant variable;
    variable.vt = VT_BSTR;
    variable.bstrVal = SysAllocString(L"1+");
    Variant result;
    CHECK_EQUAL(S_OK, call(parser, L"parse",
                           {variableArgument(variable), variableArgument(variable)}, &result));
    CHECK_EQUAL(-1, result.lVal);
    CHECK_EQUAL(L"Error in line: 1\r\n", textOf(variable).substr(0, 18));
}

void variablesArePassedForTexts() {
    Dispatch const parser = createLateParser();
    Variant source;
    source.vt = VT_BSTR;
    source.bstrVal = SysAllocString(L"6*7");
    Variant error;
    Variant result;
    CHECK_EQUAL(
        S_OK, call(parser, L"parse", {variableArgument(source), variableArgument(error)}, &result));
    Variant index;
    index.vt = VT_I2;  // as scripts write small numbers
    index.iVal = 0;
    CHECK_EQUAL(S_OK, call(parser, L"execute", {variableArgument(index), variableArgument(error)},
                           &result));
    CHECK_EQUAL(L"42", textOf(result));
}

void argumentsMayBeNamed() {
    Dispatch const parser = createLateParser();
    Bstr const wrong(L"1+");
    Variant variable;
    Variant result;
    std::vector<VARIANT> arguments = {variableArgument(variable), argument(wrong)};
    std::vector<DISPID> names = {1, 0};
    DISPPARAMS parameters = {arguments.data(), names.data(), 2, 2};
    CHECK_EQUAL(S_OK, parser->Invoke(idOf(parser, L"parse"), IID_NULL, 0x409, DISPATCH_METHOD,
                                     &parameters, &result, nullptr, nullptr));
    CHECK_EQUAL(-1, result.lVal);
    CHECK_EQUAL(L"Error in line: 1\r\n", textOf(variable).substr(0, 18));
}

void failedCallsLeaveVariablesAlone() {
    Dispatch const parser = createLateParser();
    Variant variable;
    variable.vt = VT_BSTR;
    variable.bstrVal = SysAllocString(L"kept");
    Bstr const noNumber(L"no number");
    CHECK_EQUAL(DISP_E_TYPEMISMATCH,
                call(parser, L"execute", {argument(noNumber), variableArgument(variable)}));
    CHECK_EQUAL(L"kept", textOf(variable));
}

void wrongCallsAreRefused() {
    Dispatch const parser = createLateParser();
    Bstr const text(L"x");
    DISPPARAMS none = {nullptr, nullptr, 0, 0};
    CHECK_EQUAL(DISP_E_MEMBERNOTFOUND, parser->Invoke(99, IID_NULL, 0x409, DISPATCH_METHOD, &none,
                                                      nullptr, nullptr, nullptr));
    CHECK_EQUAL(DISP_E_MEMBERNOTFOUND, parser->Invoke(1, IID_NULL, 0x409, DISPATCH_PROPERTYPUT,
                                                      &none, nullptr, nullptr, nullptr));
    CHECK(FAILED(call(parser, L"parse", {})));
    CHECK(FAILED(call(parser, L"parse", {argument(text)})));
}

}  // namespace

int main() {
    Apartment const apartment;
    registerServer();
    return runCases(
        {{"names give the identifiers", namesGiveTheIdentifiers},
         {"parameters have names", parametersHaveNames},
         {"type information is offered", typeInformationIsOffered},
         {"every method can be called", everyMethodCanBeCalled},
         {"documents and arrays come back", documentsAndArraysComeBack},
         {"variables receive the error texts", variablesReceiveTheErrorTexts},
         {"variables of any type receive the error texts", variablesOfAnyTypeReceiveTheErrorTexts},
         {"one variable may be source and error text", oneVariableMayBeSourceAndErrorText},
         {"variables are passed for texts", variablesArePassedForTexts},
         {"arguments may be named", argumentsMayBeNamed},
         {"failed calls leave variables alone", failedCallsLeaveVariablesAlone},
         {"wrong calls are refused", wrongCallsAreRefused}});
}
