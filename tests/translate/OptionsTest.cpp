// Variables, functions, EXACT, strictness, date formats.
#include <gtest/gtest.h>
#include <stdexcept>

#include "Translated.h"
#include "support/Utf8.h"

namespace {

using Options = KxJsTranslator::Options;

std::string translate(std::string_view formula, Options const& options = {}) {
    auto const translation = KxJsTranslator(options).translate(kx::test::toUtf16(formula));
    if (!translation.findings.empty()) return kx::test::toUtf8(translation.findings[0].code);
    return kx::test::toUtf8(translation.javaScript);
}

TEST(Options, NamesMeanTheVariablesWhateverTheirCase) {
    Options options;
    options.variables = {{u"Price"}, {u"cust$Name"}};
    EXPECT_EQ(translate("PRICE", options), "Price");
    EXPECT_EQ(translate("price", options), "Price");
    EXPECT_EQ(translate("other", options), "OTHER");
    EXPECT_EQ(translate("Cust->NAME", options), "cust$Name");
    EXPECT_EQ(translate("cust.name", options), "cust$Name");
    EXPECT_EQ(translate("a->b.c"), "A$B$C");
}

TEST(Options, PrefixesOfVariablesAreDropped) {
    for (char const* formula : {"M->x", "memvar->x", "m.x", "FIELD->x", "_field->x"}) {
        EXPECT_EQ(translate(formula), "X") << formula;
    }
    EXPECT_EQ(translate("field.x"), "FIELD$X");
    EXPECT_EQ(translate("M->cust->x"), "CUST$X");
}

TEST(Options, ListsTheVariables) {
    Options options;
    options.variables = {{u"Price"}};
    auto const translation =
        KxJsTranslator(options).translate(u"PRICE*qty + price + LEN(C->D) + TYPE('z')");
    std::vector<std::u16string> const expected{u"Price", u"QTY", u"C$D", u"Z"};
    EXPECT_EQ(translation.variables, expected);
}

TEST(Options, KeysThatAreNoNamesOfJavaScriptAreRefused) {
    Options options;
    options.variables = {{u"new"}, {u"kx"}};
    EXPECT_EQ(translate("NEW", options), "RESERVED_NAME");
    EXPECT_EQ(translate("KX", options), "RESERVED_NAME");
    EXPECT_EQ(translate("new"), "NEW");
}

TEST(Options, OwnFunctionsAreCalled) {
    Options options;
    options.functions = {u"MyTax"};
    EXPECT_EQ(translate("mytax(1,2)", options), "MyTax(1,2)");
    EXPECT_EQ(translate("mytax(1,2)"), "FUNCTION_UNKNOWN");
}

TEST(Options, StrictTranslationsKnowAllNames) {
    Options options;
    options.strict = true;
    options.variables = {{u"A"}};
    EXPECT_EQ(translate("a", options), "A");
    EXPECT_EQ(translate("b", options), "NAME_UNKNOWN");
}

TEST(Options, KindsLeaveOutWhatCannotHappen) {
    Options options;
    options.variables = {{u"L", KxJsTranslator::Kind::LOGICAL},
                         {u"N", KxJsTranslator::Kind::NUMBER}};
    EXPECT_EQ(translate("L .AND. X", options), "(L&&kx.l(X,\"AND\"))");
    EXPECT_EQ(translate("N >= 5", options), "(N>=5)");
    EXPECT_EQ(translate("N >= X", options), "(kx.cmp(N,X,\">=\")>=0)");
    EXPECT_EQ(translate("IIF(L,1,2)", options), "(L?1:2)");
}

TEST(Options, ExactComparesInFullButForTrailingBlanks) {
    Options options;
    options.exact = true;
    Translated exact(options);
    EXPECT_EQ(exact.run("'AB ' = 'AB'"), "true");
    EXPECT_EQ(exact.run("'ABC' = 'AB'"), "false");
    EXPECT_EQ(exact.run("'ABC' > 'AB'"), "true");
    EXPECT_EQ(exact.run("'AB ' == 'AB'"), "false");
    EXPECT_EQ(exact.run("INLIST('ABC','AB')"), "false");
    EXPECT_EQ(exact.run("BETWEEN('ABC','A','AB')"), "false");
}

TEST(Options, DatesAreWrittenAndReadInTheFormat) {
    Options options;
    options.dateFormat = u"DD.MM.YY";
    options.epoch = 1950;
    Translated german(options);
    EXPECT_EQ(german.run("{^2020-01-31}"), "31.01.20");
    EXPECT_EQ(german.run("DTOC({//})"), "  .  .  ");
    EXPECT_EQ(german.run("CTOD('31.1.49')=={^2049-01-31}"), "true");
    EXPECT_EQ(german.run("CTOD('31.1.50')=={^1950-01-31}"), "true");
    EXPECT_EQ(german.run("PADL({^2020-01-31},10)"), "  31.01.20");
    EXPECT_EQ(german.run("TRANSFORM({^2020-01-31},'@E')"), "31.01.20");
    EXPECT_EQ(german.run("CVALTOCHAR({^2020-01-31})"), "31.01.20");
}

TEST(Options, WrongDateFormatsAreRefused) {
    for (char16_t const* format : {u"", u"YYYY-MM", u"YYY-MM-DD", u"YY-MM-DD-YY", u"MM-DD-Y"}) {
        Options options;
        options.dateFormat = format;
        EXPECT_THROW(KxJsTranslator translator(options), std::invalid_argument);
    }
}

}  // namespace
