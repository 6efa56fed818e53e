// Null pointers to results: which are refused, and that the refused call did nothing.

#include <windows.h>

#include "support/ArrayReader.h"
#include "support/Check.h"
#include "support/Com.h"
#include "support/Server.h"

using namespace test;

namespace {

bool exists(Parser const& parser, wchar_t const* name) {
    VARIANT_BOOL found = VARIANT_FALSE;
    parser->variableExist(Bstr(name), &found);
    return found == VARIANT_TRUE;
}

void executeNeedsBothTexts() {
    Parser const parser = createParser();
    LONG const counting = parse(parser, L"this.runs = (this.runs || 0) + 1").index;
    BSTR untouched = reinterpret_cast<BSTR>(0x77);
    CHECK_EQUAL(E_POINTER, parser->execute(counting, nullptr, &untouched));
    CHECK_EQUAL(0x77, reinterpret_cast<LONG_PTR>(untouched));
    CHECK_EQUAL(E_POINTER, parser->execute(counting, &untouched, nullptr));
    CHECK_EQUAL(0x77, reinterpret_cast<LONG_PTR>(untouched));
    CHECK_EQUAL(E_POINTER, parser->execute(counting, nullptr, nullptr));
    CHECK_EQUAL(L"1", execute(parser, counting).result.text());  // none of them ran
}

void settingVariablesNeedsTheFlag() {
    Parser const parser = createParser();
    Bstr const name(L"v");
    CHECK_EQUAL(E_POINTER, parser->addSetVariableString(name, Bstr(L"x"), nullptr));
    CHECK_EQUAL(E_POINTER, parser->addSetVariableLong(name, 1, nullptr));
    CHECK_EQUAL(E_POINTER, parser->addSetVariableDouble(name, 1.5, nullptr));
    CHECK_EQUAL(E_POINTER, parser->addSetVariableBool(name, VARIANT_TRUE, nullptr));
    CHECK(!exists(parser, L"v"));
}

void textResultsAreNeeded() {
    Parser const parser = createParser();
    CHECK_EQUAL(E_POINTER, parser->convert(Bstr(L"A"), nullptr));
    CHECK_EQUAL(E_POINTER, parser->getUserDocumentationOnePage(0, 0, nullptr));
}

void arrayResultsAreNeeded() {
    Parser const parser = createParser();
    CHECK_EQUAL(E_POINTER, parser->getUserDocumentationManyPages(nullptr));
    BSTR untouched = reinterpret_cast<BSTR>(0x77);
    CHECK_EQUAL(E_POINTER, parser->extractVariable(Bstr(L"A"), &untouched, nullptr));
    CHECK_EQUAL(0x77, reinterpret_cast<LONG_PTR>(untouched));
    CHECK_EQUAL(E_POINTER, parser->extractVariable(Bstr(L"A"), nullptr, nullptr));
}

void extractionDoesWithoutItsErrorText() {
    Parser const parser = createParser();
    Variant array;
    CHECK_EQUAL(S_OK, parser->extractVariable(Bstr(L"A"), nullptr, &array));
    CHECK_SHAPE(array, 1);
    Variant empty;
    CHECK_EQUAL(S_OK, parser->extractVariable(Bstr(L"1+"), nullptr, &empty));
    CHECK_SHAPE(empty, 0);
}

/// Where nothing is refused, the call is made and its result dropped.
void otherResultsAreDropped() {
    Parser const parser = createParser();
    CHECK_EQUAL(S_OK, parser->variableExist(Bstr(L"v"), nullptr));
    CHECK_EQUAL(S_OK, parser->getVariableType(Bstr(L"v"), nullptr));
    INT count = 5;
    Variant array;
    CHECK_EQUAL(S_OK, parser->getMathFunctions(nullptr, &count));
    CHECK_EQUAL(S_OK, parser->getStringFunctions(nullptr, nullptr));
    CHECK_EQUAL(5, count);
    CHECK_EQUAL(S_OK, parser->getOtherFunctions(&array, nullptr));
    CHECK_SHAPE(array, 9, 9);
}

void parsingDoesWithoutItsResults() {
    Parser const parser = createParser();
    LONG index = -2;
    Bstr error;
    CHECK_EQUAL(S_OK, parser->parse(Bstr(L"10"), nullptr, &index));
    CHECK_EQUAL(0, index);
    CHECK_EQUAL(S_OK, parser->parse(Bstr(L"11"), error.put(), nullptr));
    CHECK_EQUAL(S_OK, parser->parse(Bstr(L"12"), nullptr, nullptr));
    CHECK_EQUAL(S_OK, parser->parse(Bstr(L"1+"), nullptr, &index));
    CHECK_EQUAL(-1, index);
    CHECK_EQUAL(L"11", execute(parser, 1).result.text());
    CHECK_EQUAL(L"12", execute(parser, 2).result.text());
}

}  // namespace

int main() {
    Apartment const apartment;
    registerServer();
    return runCases({{"execute needs both texts", executeNeedsBothTexts},
                     {"setting variables needs the flag", settingVariablesNeedsTheFlag},
                     {"text results are needed", textResultsAreNeeded},
                     {"array results are needed", arrayResultsAreNeeded},
                     {"extraction does without its error text", extractionDoesWithoutItsErrorText},
                     {"other results are dropped", otherResultsAreDropped},
                     {"parsing does without its results", parsingDoesWithoutItsResults}});
}
