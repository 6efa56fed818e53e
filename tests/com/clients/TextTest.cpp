// Texts cross the interface unchanged, whatever their length and content.

#include <string>
#include <windows.h>

#include "support/ArrayReader.h"
#include "support/Check.h"
#include "support/Com.h"
#include "support/Server.h"

using namespace test;

namespace {

using namespace std::string_literals;

std::wstring convert(Parser const& parser, std::wstring const& formula) {
    Bstr text;
    CHECK_EQUAL(S_OK, parser->convert(Bstr(formula), text.put()));
    return text.text();
}

bool setString(Parser const& parser, std::wstring const& name, std::wstring const& value) {
    VARIANT_BOOL stored = VARIANT_FALSE;
    CHECK_EQUAL(S_OK, parser->addSetVariableString(Bstr(name), Bstr(value), &stored));
    return stored == VARIANT_TRUE;
}

void sourcesKeepTheirZeros() {
    Parser const parser = createParser();
    CHECK_EQUAL(L"3", evaluate(parser, L"'a\0b'.length"s));
    CHECK_EQUAL(L"0", evaluate(parser, L"'a\0b'.charCodeAt(1)"s));
}

void resultsEndAtTheirFirstZero() {
    Parser const parser = createParser();
    CHECK_EQUAL(L"a", evaluate(parser, L"'a\0b'"s));
    CHECK_EQUAL(L"a", evaluate(parser, L"'a\\0b'"));
    CHECK_EQUAL(L"", evaluate(parser, L"'\\0b'"));
}

void namesKeepTheirZeros() {
    Parser const parser = createParser();
    CHECK(setString(parser, L"a\0b"s, L"value"));
    VARIANT_BOOL found = VARIANT_FALSE;
    parser->variableExist(Bstr(L"a\0b"s), &found);
    CHECK_EQUAL(VARIANT_TRUE, found);
    parser->variableExist(Bstr(L"a"), &found);
    CHECK_EQUAL(VARIANT_FALSE, found);
    parser->variableExist(Bstr(L"a\0c"s), &found);
    CHECK_EQUAL(VARIANT_FALSE, found);
}

void scriptsSeeTheStartOfALongValue() {
    Parser const parser = createParser();
    CHECK(setString(parser, L"S", std::wstring(300, L'x')));
    CHECK_EQUAL(L"255", evaluate(parser, L"S.length"));
    CHECK(setString(parser, L"S", L"ab\0cd"s));
    CHECK_EQUAL(L"2", evaluate(parser, L"S.length"));
    CHECK(setString(parser, L"S", L""));
    CHECK_EQUAL(L"0", evaluate(parser, L"S.length"));
}

void formulasEndAtTheirFirstZero() {
    Parser const parser = createParser();
    CHECK_EQUAL(L"A!=B", convert(parser, L"A<>B\0<>C"s));
    CHECK_EQUAL(L"", convert(parser, L"\0A"s));
}

void everyCodeUnitCrosses() {
    Parser const parser = createParser();
    std::wstring units;
    for (wchar_t unit = 1; unit != 0; ++unit) {
        bool const endsLiteral = unit == L'\'' || unit == L'\\' || unit == L'\n' || unit == L'\r';
        if (!endsLiteral) units += unit;  // unpaired surrogates included
    }
    CHECK_EQUAL(65531, units.size());
    CHECK(evaluate(parser, L"'" + units + L"'") == units);
}

void namesMayUseAnyScript() {
    Parser const parser = createParser();
    std::wstring const name = L"\u03c0\u5186\U00020000";
    CHECK(setString(parser, name, L"\u65e5\u672c"));
    CHECK_EQUAL(L"\u65e5\u672c!", evaluate(parser, name + L"+'!'"));
}

void longTextsCross() {
    Parser const parser = createParser();
    std::wstring const source(3'000'000, L' ');
    CHECK_EQUAL(L"1", evaluate(parser, source + L"1"));
    std::wstring const result = evaluate(parser, L"'xy'.repeat(1000000)");
    CHECK_EQUAL(2'000'000, result.size());
    CHECK_EQUAL(L"xyxy", result.substr(result.size() - 4));
    std::wstring const name(100'000, L'n');
    CHECK(setString(parser, name, L"long"));
    CHECK_EQUAL(L"long", evaluate(parser, name));
    CHECK_EQUAL(1'000'001, convert(parser, L"A" + std::wstring(1'000'000, L'1')).size());
}

void nullTextsAreEmpty() {
    Parser const parser = createParser();
    VARIANT_BOOL flag = 77;
    CHECK_EQUAL(S_OK, parser->variableExist(nullptr, &flag));
    CHECK_EQUAL(VARIANT_FALSE, flag);
    auto type = static_cast<TypeOfVariable>(77);
    CHECK_EQUAL(S_OK, parser->getVariableType(nullptr, &type));
    CHECK_EQUAL(TYPE_OF_VAR_UNDEFINED, type);
    CHECK_EQUAL(S_OK, parser->addSetVariableString(nullptr, nullptr, &flag));
    CHECK_EQUAL(VARIANT_FALSE, flag);
    CHECK_EQUAL(S_OK, parser->addSetVariableString(Bstr(L"s"), nullptr, &flag));
    CHECK_EQUAL(VARIANT_TRUE, flag);
    CHECK_EQUAL(L"0", evaluate(parser, L"s.length"));

    Bstr error;
    LONG index = -2;
    CHECK_EQUAL(S_OK, parser->parse(nullptr, error.put(), &index));
    CHECK(index >= 0);
    CHECK_EQUAL(L"undefined", execute(parser, index).result.text());
    Bstr script;
    CHECK_EQUAL(S_OK, parser->convert(nullptr, script.put()));
    CHECK(!script.isNull());
    CHECK_EQUAL(L"", script.text());
    Variant names;
    CHECK_EQUAL(S_OK, parser->extractVariable(nullptr, error.put(), &names));
    CHECK_SHAPE(names, 0);
}

void emptyResultsAreAllocated() {
    Parser const parser = createParser();
    Executed const executed = execute(parser, parse(parser, L"''").index);
    CHECK(!executed.result.isNull());
    CHECK(!executed.error.isNull());
    CHECK_EQUAL(0, SysStringLen(executed.result));
}

}  // namespace

int main() {
    Apartment const apartment;
    registerServer();
    return runCases({{"sources keep their zeros", sourcesKeepTheirZeros},
                     {"results end at their first zero", resultsEndAtTheirFirstZero},
                     {"names keep their zeros", namesKeepTheirZeros},
                     {"scripts see the start of a long value", scriptsSeeTheStartOfALongValue},
                     {"formulas end at their first zero", formulasEndAtTheirFirstZero},
                     {"every code unit crosses", everyCodeUnitCrosses},
                     {"names may use any script", namesMayUseAnyScript},
                     {"long texts cross", longTextsCross},
                     {"null texts are empty", nullTextsAreEmpty},
                     {"empty results are allocated", emptyResultsAreAllocated}});
}
