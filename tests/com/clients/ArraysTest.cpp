// The arrays that clients receive: shapes, bounds, elements, and what stays untouched.

#include <optional>
#include <string>
#include <vector>
#include <windows.h>

#include "support/ArrayReader.h"
#include "support/Check.h"
#include "support/Com.h"
#include "support/Server.h"

using namespace test;

namespace {

using CatalogueMethod = HRESULT (STDMETHODCALLTYPE IKxJsParserX::*)(VARIANT*, INT*);

std::wstring cell(VARIANT const& array, LONG row, LONG column) {
    return element(array, {row, column}).value_or(L"(null)");
}

std::vector<std::wstring> row(VARIANT const& array, LONG index) {
    return {cell(array, index, 0), cell(array, index, 1), cell(array, index, 2)};
}

/// The catalogue's array, with what holds for each of them checked.
void readCatalogue(CatalogueMethod method, LONG size, Variant& array) {
    Parser const parser = createParser();
    INT count = 12345;
    CHECK_EQUAL(S_OK, (parser.get()->*method)(&array, &count));
    CHECK_EQUAL(12345, count);  // declared, and never written
    CHECK_SHAPE(array, size, size);
    for (LONG i = 0; i < size; ++i) {
        for (LONG column = 0; column < size; ++column) {
            CHECK_EQUAL(column < 3, element(array, {i, column}).has_value());
        }
    }
}

void mathematicalCatalogue() {
    Variant array;
    readCatalogue(&IKxJsParserX::getMathFunctions, 14, array);
    CHECK_EQUAL(
        (std::vector<std::wstring>{L"ROUND", L"Rounds a float", L"ROUND(10.523, 2) &rarr; 10.52"}),
        row(array, 0));
    CHECK_EQUAL((std::vector<std::wstring>{L"EXP", L"Function returns exponetial of a number",
                                           L"EXP(-1) &rarr; 0.36787944117144233"}),
                row(array, 13));
}

void stringCatalogue() {
    Variant array;
    readCatalogue(&IKxJsParserX::getStringFunctions, 40, array);
    CHECK_EQUAL(
        (std::vector<std::wstring>{L"LTRIM", L"Strip whitespace from the beginning of a string",
                                   L"LTRIM('   hello') &rarr; 'hello'"}),
        row(array, 0));
    CHECK_EQUAL((std::vector<std::wstring>{L"LEN", L"This method returns the length of string",
                                           L"LEN('ABC') &rarr; 3"}),
                row(array, 39));
}

void otherCatalogue() {
    Variant array;
    readCatalogue(&IKxJsParserX::getOtherFunctions, 9, array);
    CHECK_EQUAL((std::vector<std::wstring>{L"IIF", L"Check cond expression and return p1 or p2",
                                           L"IIF(true, 'abc','xyz') &rarr; abc"}),
                row(array, 0));
    CHECK_EQUAL((std::vector<std::wstring>{L"LISTFUNCT", L"Show all functions", L" "}),
                row(array, 8));
}

void pagesAreNamedRows() {
    Parser const parser = createParser();
    Variant array;
    CHECK_EQUAL(S_OK, parser->getUserDocumentationManyPages(&array));
    CHECK_SHAPE(array, 63, 2);
    CHECK_EQUAL(L"ROUND", cell(array, 0, 0));
    CHECK_EQUAL(L"LTRIM", cell(array, 14, 0));
    CHECK_EQUAL(L"LISTFUNCT", cell(array, 62, 0));
    for (LONG i = 0; i < 63; ++i) {
        std::wstring const start =
            L"<!doctype html>\n<html>\n\t<head>\n\t\t<title>" + cell(array, i, 0) + L"</title>\n";
        std::wstring const page = cell(array, i, 1);
        CHECK_EQUAL(start, page.substr(0, start.size()));
        CHECK_EQUAL(L"\t</body>\n</html>", page.substr(page.size() - 16));
    }
}

std::vector<std::wstring> extract(std::wstring const& source, std::wstring& error) {
    Parser const parser = createParser();
    Variant array;
    Bstr errorText;
    CHECK_EQUAL(S_OK, parser->extractVariable(Bstr(source), errorText.put(), &array));
    CHECK(!errorText.isNull());
    error = errorText.text();
    LONG last = -2;
    SafeArrayGetUBound(array.parray, 1, &last);
    CHECK_SHAPE(array, last + 1);
    std::vector<std::wstring> names;
    for (LONG i = 0; i <= last; ++i) names.push_back(element(array, {i}).value_or(L"(null)"));
    return names;
}

void extractedNamesAreAList() {
    std::wstring error;
    CHECK_EQUAL((std::vector<std::wstring>{L"A", L"B"}), extract(L"A+B", error));
    CHECK_EQUAL(L"", error);
    CHECK_EQUAL((std::vector<std::wstring>{L"X"}), extract(L"ROUND(X,2)", error));
    CHECK_EQUAL(L"", error);
}

void nothingExtractedIsAnEmptyList() {
    std::wstring error;
    CHECK_EQUAL(std::vector<std::wstring>{}, extract(L"1+1", error));
    CHECK_EQUAL(L"", error);
    CHECK_EQUAL(std::vector<std::wstring>{}, extract(L"null.x + Y", error));
    CHECK_EQUAL(L"", error);
    CHECK_EQUAL(std::vector<std::wstring>{}, extract(L"1+", error));
    CHECK_EQUAL(L"Error in line: 1\r\n", error.substr(0, 18));
}

void extractionLeavesTheObjectAlone() {
    Parser const parser = createParser();
    Variant array;
    Bstr error;
    CHECK_EQUAL(S_OK, parser->extractVariable(Bstr(L"A+B"), error.put(), &array));
    VARIANT_BOOL found = VARIANT_TRUE;
    parser->variableExist(Bstr(L"A"), &found);
    CHECK_EQUAL(VARIANT_FALSE, found);
    CHECK_EQUAL(0, parse(parser, L"1").index);
}

/// A VARIANT with a text in it, given to the method as its result.
template <class Method>
void checkThatContentIsOverwritten(Method const& method) {
    Bstr const content(L"the caller's");
    VARIANT result;
    result.vt = VT_BSTR;
    result.bstrVal = content.get();
    CHECK_EQUAL(S_OK, method(&result));
    CHECK_EQUAL(0x2008, result.vt);
    CHECK_EQUAL(L"the caller's", content.text());  // still alive, and still the caller's
    VariantClear(&result);
}

void earlierContentIsNotCleared() {
    Parser const parser = createParser();
    INT count = 0;
    Bstr error;
    checkThatContentIsOverwritten(
        [&](VARIANT* result) { return parser->getMathFunctions(result, &count); });
    checkThatContentIsOverwritten(
        [&](VARIANT* result) { return parser->getStringFunctions(result, &count); });
    checkThatContentIsOverwritten(
        [&](VARIANT* result) { return parser->getOtherFunctions(result, &count); });
    checkThatContentIsOverwritten(
        [&](VARIANT* result) { return parser->getUserDocumentationManyPages(result); });
    checkThatContentIsOverwritten(
        [&](VARIANT* result) { return parser->extractVariable(Bstr(L"A"), error.put(), result); });
}

}  // namespace

int main() {
    Apartment const apartment;
    registerServer();
    return runCases({{"the mathematical catalogue", mathematicalCatalogue},
                     {"the string catalogue", stringCatalogue},
                     {"the other catalogue", otherCatalogue},
                     {"pages are named rows", pagesAreNamedRows},
                     {"extracted names are a list", extractedNamesAreAList},
                     {"nothing extracted is an empty list", nothingExtractedIsAnEmptyList},
                     {"extraction leaves the object alone", extractionLeavesTheObjectAlone},
                     {"earlier content is not cleared", earlierContentIsNotCleared}});
}
