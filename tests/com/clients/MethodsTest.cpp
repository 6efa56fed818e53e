// An early-bound client: what each method of IKxJsParserX does.

#include <map>
#include <string>
#include <vector>
#include <windows.h>

#include "support/Check.h"
#include "support/Com.h"
#include "support/Server.h"

using namespace test;

namespace {

bool exists(Parser const& parser, std::wstring const& name) {
    VARIANT_BOOL found = 77;
    CHECK_EQUAL(S_OK, parser->variableExist(Bstr(name), &found));
    CHECK(found == VARIANT_TRUE || found == VARIANT_FALSE);
    return found == VARIANT_TRUE;
}

TypeOfVariable typeOf(Parser const& parser, std::wstring const& name) {
    auto type = static_cast<TypeOfVariable>(77);
    CHECK_EQUAL(S_OK, parser->getVariableType(Bstr(name), &type));
    return type;
}

void setString(Parser const& parser, std::wstring const& name, std::wstring const& value) {
    VARIANT_BOOL stored = 77;
    CHECK_EQUAL(S_OK, parser->addSetVariableString(Bstr(name), Bstr(value), &stored));
    CHECK_EQUAL(VARIANT_TRUE, stored);
}

void setLong(Parser const& parser, std::wstring const& name, LONG value) {
    VARIANT_BOOL stored = 77;
    CHECK_EQUAL(S_OK, parser->addSetVariableLong(Bstr(name), value, &stored));
    CHECK_EQUAL(VARIANT_TRUE, stored);
}

void setDouble(Parser const& parser, std::wstring const& name, DOUBLE value) {
    VARIANT_BOOL stored = 77;
    CHECK_EQUAL(S_OK, parser->addSetVariableDouble(Bstr(name), value, &stored));
    CHECK_EQUAL(VARIANT_TRUE, stored);
}

void setBool(Parser const& parser, std::wstring const& name, VARIANT_BOOL value) {
    VARIANT_BOOL stored = 77;
    CHECK_EQUAL(S_OK, parser->addSetVariableBool(Bstr(name), value, &stored));
    CHECK_EQUAL(VARIANT_TRUE, stored);
}

bool startsWith(std::wstring const& text, std::wstring const& start) {
    return text.compare(0, start.size(), start) == 0;
}

std::wstring onePage(Parser const& parser, VARIANT_BOOL standalone, VARIANT_BOOL withExample) {
    Bstr page;
    CHECK_EQUAL(S_OK, parser->getUserDocumentationOnePage(standalone, withExample, page.put()));
    return page.text();
}

void oneRequestFromEndToEnd() {
    Parser const parser = createParser();
    CHECK_EQUAL(S_OK, parser->initialize());
    Bstr script;
    CHECK_EQUAL(S_OK, parser->convert(Bstr(L"IIF(A>2,'OK','KO')"), script.put()));
    setLong(parser, L"A", 5);
    Parsed const parsed = parse(parser, script.text());
    CHECK_EQUAL(S_OK, parsed.outcome);
    CHECK_EQUAL(0, parsed.index);
    CHECK_EQUAL(L"", parsed.error.text());
    Executed const executed = execute(parser, 0);
    CHECK_EQUAL(S_OK, executed.outcome);
    CHECK_EQUAL(L"OK", executed.result.text());
    CHECK_EQUAL(L"", executed.error.text());
}

void newObjectHasAContextButNoFunctions() {
    Parser const parser = createParser();
    CHECK_EQUAL(L"2", evaluate(parser, L"1+1"));
    CHECK(startsWith(evaluate(parser, L"LEN('ABC')"),
                     L"<Error in line: 1\r\nReferenceError: LEN is not defined"));
    CHECK_EQUAL(S_OK, parser->initialize());
    CHECK_EQUAL(L"3", evaluate(parser, L"LEN('ABC')"));
}

void initializeMayBeCalledAgain() {
    Parser const parser = createInitializedParser();
    CHECK_EQUAL(L"1", evaluate(parser, L"LEN = 1"));
    CHECK_EQUAL(S_OK, parser->initialize());
    CHECK_EQUAL(L"3", evaluate(parser, L"LEN('ABC')"));
}

void objectsAreApart() {
    Parser const one = createInitializedParser();
    Parser const other = createInitializedParser();
    setLong(one, L"A", 1);
    CHECK(!exists(other, L"A"));
    CHECK_EQUAL(L"7", evaluate(one, L"shared = 7"));
    CHECK_EQUAL(L"undefined", evaluate(other, L"typeof shared"));
}

void variablesAreFoundByTheirExactNames() {
    Parser const parser = createInitializedParser();
    CHECK(!exists(parser, L"price"));
    setDouble(parser, L"price", 12.5);
    CHECK(exists(parser, L"price"));
    CHECK(!exists(parser, L"Price"));
    CHECK(!exists(parser, L"price "));
}

void variablesHaveTheTypeOfTheirLastValue() {
    Parser const parser = createInitializedParser();
    CHECK_EQUAL(TYPE_OF_VAR_UNDEFINED, typeOf(parser, L"v"));
    setLong(parser, L"v", 3);
    CHECK_EQUAL(TYPE_OF_VAR_LONG, typeOf(parser, L"v"));
    setDouble(parser, L"v", 1.5);
    CHECK_EQUAL(TYPE_OF_VAR_DOUBLE, typeOf(parser, L"v"));
    setString(parser, L"v", L"text");
    CHECK_EQUAL(TYPE_OF_VAR_STRING, typeOf(parser, L"v"));
    setBool(parser, L"v", VARIANT_TRUE);
    CHECK_EQUAL(TYPE_OF_VAR_BOOLEAN, typeOf(parser, L"v"));
    CHECK_EQUAL(TYPE_OF_VAR_UNDEFINED, typeOf(parser, L"V"));
}

void scriptsReadTheValuesOfTheRun() {
    Parser const parser = createInitializedParser();
    setLong(parser, L"A", 3);
    Parsed const parsed = parse(parser, L"A*2");
    CHECK_EQUAL(L"6", execute(parser, parsed.index).result.text());
    setDouble(parser, L"A", 1.5);
    CHECK_EQUAL(L"3", execute(parser, parsed.index).result.text());
    setString(parser, L"A", L"x");
    Executed const executed = execute(parser, parsed.index);
    CHECK_EQUAL(L"NaN", executed.result.text());
    CHECK_EQUAL(L"Not A Number", executed.error.text());
}

void numbersCrossUnchanged() {
    Parser const parser = createInitializedParser();
    for (LONG const value : {0L, -1L, 2147483647L, -2147483647L - 1L}) {
        setLong(parser, L"n", value);
        CHECK_EQUAL(std::to_wstring(value), evaluate(parser, L"n"));
    }
    setDouble(parser, L"d", 5e-324);
    CHECK_EQUAL(L"5e-324", evaluate(parser, L"d"));
    setDouble(parser, L"d", -0.1);
    CHECK_EQUAL(L"-0.1", evaluate(parser, L"d"));
}

void onlyVariantTrueIsTrue() {
    Parser const parser = createInitializedParser();
    std::map<VARIANT_BOOL, wchar_t const*> const rows = {
        {VARIANT_TRUE, L"true"}, {VARIANT_FALSE, L"false"},
        {1, L"false"},           {2, L"false"},
        {-2, L"false"},          {255, L"false"}};
    for (auto const& [given, seen] : rows) {
        setBool(parser, L"b", given);
        CHECK_EQUAL(seen, evaluate(parser, L"b"));
    }
}

void unusableNamesAreRefused() {
    Parser const parser = createInitializedParser();
    for (wchar_t const* name : {L"ouraccessor", L"", L"  ", L"\t\r\n"}) {
        Bstr const key(name);
        VARIANT_BOOL stored = 77;
        CHECK_EQUAL(S_OK, parser->addSetVariableString(key, Bstr(L"x"), &stored));
        CHECK_EQUAL(VARIANT_FALSE, stored);
        stored = 77;
        CHECK_EQUAL(S_OK, parser->addSetVariableLong(key, 1, &stored));
        CHECK_EQUAL(VARIANT_FALSE, stored);
        stored = 77;
        CHECK_EQUAL(S_OK, parser->addSetVariableDouble(key, 1, &stored));
        CHECK_EQUAL(VARIANT_FALSE, stored);
        stored = 77;
        CHECK_EQUAL(S_OK, parser->addSetVariableBool(key, VARIANT_TRUE, &stored));
        CHECK_EQUAL(VARIANT_FALSE, stored);
        CHECK(!exists(parser, name));
    }
}

void parsingNumbersTheScripts() {
    Parser const parser = createParser();
    for (LONG index = 0; index < 3; ++index) {
        Parsed const parsed = parse(parser, L"1+" + std::to_wstring(index));
        CHECK_EQUAL(S_OK, parsed.outcome);
        CHECK_EQUAL(index, parsed.index);
        CHECK(!parsed.error.isNull());
        CHECK_EQUAL(L"", parsed.error.text());
    }
    CHECK_EQUAL(L"2", execute(parser, 1).result.text());
    CHECK_EQUAL(L"1", execute(parser, 0).result.text());
}

void syntaxErrorsAreTexts() {
    Parser const parser = createParser();
    Parsed const parsed = parse(parser, L"1+");
    CHECK_EQUAL(S_OK, parsed.outcome);
    CHECK_EQUAL(-1, parsed.index);
    CHECK(startsWith(parsed.error.text(), L"Error in line: 1\r\nSyntaxError: "));
}

void errorLinesCountTheVariables() {
    Parser const parser = createInitializedParser();
    setLong(parser, L"A", 1);
    setLong(parser, L"B", 2);
    CHECK(startsWith(parse(parser, L"A+B+").error.text(), L"Error in line: 3\r\n"));
}

void runErrorsAreTexts() {
    Parser const parser = createParser();
    Executed const executed = execute(parser, parse(parser, L"throw new Error('no')").index);
    CHECK_EQUAL(S_OK, executed.outcome);
    CHECK_EQUAL(L"", executed.result.text());
    CHECK(!executed.result.isNull());
    CHECK_EQUAL(L"Error in line: 1\r\nError: no\r\nthrow new Error('no')\r\n^\r\n",
                executed.error.text());
}

void resultsThatAreNoNumberAreReported() {
    Parser const parser = createParser();
    Executed const executed = execute(parser, parse(parser, L"0/0").index);
    CHECK_EQUAL(S_OK, executed.outcome);
    CHECK_EQUAL(L"NaN", executed.result.text());
    CHECK_EQUAL(L"Not A Number", executed.error.text());
}

void indicesOutsideTheStoreAreTexts() {
    Parser const parser = createParser();
    parse(parser, L"1");
    for (LONG const index : {1L, 2L, -1L, 2147483647L, -2147483647L - 1L}) {
        Executed const executed = execute(parser, index);
        CHECK_EQUAL(S_OK, executed.outcome);
        CHECK(!executed.result.isNull());
        CHECK_EQUAL(L"", executed.result.text());
        CHECK_EQUAL(L"invalid vector<T> subscript", executed.error.text());
    }
    CHECK_EQUAL(L"1", execute(parser, 0).result.text());
}

void resetStartsOverWithTheSameContext() {
    Parser const parser = createInitializedParser();
    setLong(parser, L"A", 5);
    CHECK_EQUAL(L"5", evaluate(parser, L"kept = A"));
    CHECK_EQUAL(S_OK, parser->reset());
    CHECK(!exists(parser, L"A"));
    CHECK_EQUAL(L"invalid vector<T> subscript", execute(parser, 0).error.text());
    Parsed const parsed = parse(parser, L"LEN('ABC') + kept");
    CHECK_EQUAL(0, parsed.index);
    CHECK_EQUAL(L"8", execute(parser, 0).result.text());
    CHECK_EQUAL(L"undefined", evaluate(parser, L"typeof A"));
}

void formulasAreConverted() {
    Parser const parser = createParser();
    Bstr script;
    CHECK_EQUAL(S_OK, parser->convert(Bstr(L"IIF(A>2 .AND. B<>0,'OK','KO')"), script.put()));
    CHECK_EQUAL(L" IIF(A>2 && B!=0,'OK','KO')", script.text());
}

void documentationFlagsAreStrict() {
    Parser const parser = createParser();
    std::wstring const bare = onePage(parser, VARIANT_FALSE, VARIANT_FALSE);
    CHECK(startsWith(bare, L"\t<h1>Mathematical functions</h1>\n"));
    CHECK(bare.find(L"Example :") == std::wstring::npos);
    CHECK_EQUAL(bare.size(), onePage(parser, 1, 1).size());
    CHECK(bare == onePage(parser, 1, 1));
    CHECK(onePage(parser, VARIANT_TRUE, 1) == onePage(parser, VARIANT_TRUE, VARIANT_FALSE));
    CHECK(onePage(parser, 1, VARIANT_TRUE) == onePage(parser, VARIANT_FALSE, VARIANT_TRUE));

    std::wstring const standalone = onePage(parser, VARIANT_TRUE, VARIANT_FALSE);
    CHECK(startsWith(standalone, L"<!doctype html>\n"));
    CHECK(standalone.find(L"Example :") == std::wstring::npos);
    std::wstring const withExamples = onePage(parser, VARIANT_FALSE, VARIANT_TRUE);
    CHECK(startsWith(withExamples, L"\t<h1>Mathematical functions</h1>\n"));
    CHECK(withExamples.find(L"Example :") != std::wstring::npos);
}

void methodsWithoutStateWorkBeforeInitialize() {
    Parser const parser = createParser();
    Variant array;
    Bstr text;
    INT count = 0;
    CHECK_EQUAL(S_OK, parser->convert(Bstr(L"A"), text.put()));
    CHECK_EQUAL(S_OK, parser->getUserDocumentationOnePage(0, 0, text.put()));
    CHECK_EQUAL(S_OK, parser->getUserDocumentationManyPages(&array));
    VariantClear(&array);
    CHECK_EQUAL(S_OK, parser->extractVariable(Bstr(L"LEN(X)"), text.put(), &array));
    VariantClear(&array);
    for (auto const method : {&IKxJsParserX::getMathFunctions, &IKxJsParserX::getStringFunctions,
                              &IKxJsParserX::getOtherFunctions}) {
        CHECK_EQUAL(S_OK, (parser.get()->*method)(&array, &count));
        VariantClear(&array);
    }
}

}  // namespace

int main() {
    Apartment const apartment;
    registerServer();
    return runCases(
        {{"one request from end to end", oneRequestFromEndToEnd},
         {"a new object has a context but no functions", newObjectHasAContextButNoFunctions},
         {"initialize may be called again", initializeMayBeCalledAgain},
         {"objects are apart", objectsAreApart},
         {"variables are found by their exact names", variablesAreFoundByTheirExactNames},
         {"variables have the type of their last value", variablesHaveTheTypeOfTheirLastValue},
         {"scripts read the values of the run", scriptsReadTheValuesOfTheRun},
         {"numbers cross unchanged", numbersCrossUnchanged},
         {"only VARIANT_TRUE is true", onlyVariantTrueIsTrue},
         {"unusable names are refused", unusableNamesAreRefused},
         {"parsing numbers the scripts", parsingNumbersTheScripts},
         {"syntax errors are texts", syntaxErrorsAreTexts},
         {"error lines count the variables", errorLinesCountTheVariables},
         {"run errors are texts", runErrorsAreTexts},
         {"results that are no number are reported", resultsThatAreNoNumberAreReported},
         {"indices outside the store are texts", indicesOutsideTheStoreAreTexts},
         {"reset starts over with the same context", resetStartsOverWithTheSameContext},
         {"formulas are converted", formulasAreConverted},
         {"documentation flags are strict", documentationFlagsAreStrict},
         {"methods without state work before initialize",
          methodsWithoutStateWorkBeforeInitialize}});
}
