#include <gtest/gtest.h>
#include <stdexcept>

#include "Cases.h"
#include "ConverterPasses.h"
#include "library/Catalogues.h"

namespace {

auto const spelling = ConverterPasses::spelling;

KxJsFunction record(std::u16string const& name) {
    KxJsFunction function;
    function.setName(name);
    function.setDescription(u"what it does");
    function.setReturnDescription(u"what it returns");
    function.setBody(u"return 1;");
    function.addExample(name + u"() &rarr; 1");
    return function;
}

TEST(SpellingPass, GivesCallsTheSpellingOfTheCatalogues) {
    expectAll(spelling, {
                            {u"Round (x, 2)", u"ROUND(x, 2)"},
                            {u"round\t\r\n(x)", u"ROUND(x)"},
                            {u"between(x,1,5)", u"BETWEEN(x,1,5)"},
                            {u"inList(a,allTrim(b),max (c))", u"INLIST(a,ALLTRIM(b),MAX(c))"},
                            {u"ROUND (x)", u"ROUND(x)"},
                            {u"log10 (x)", u"LOG10(x)"},
                            {u"max(", u"MAX("},
                        });
}

TEST(SpellingPass, KnowsEveryNameOfTheCatalogues) {
    for (auto const& build : {buildMathFunctions, buildStringFunctions, buildMiscFunctions}) {
        for (KxJsFunction const& function : build()) {
            std::u16string const& name = function.getName();
            std::u16string lower = name;
            for (char16_t& unit : lower) {
                if (unit >= u'A' && unit <= u'Z') unit += 32;
            }
            EXPECT_EQ(spelling(lower + u" (x)"), name + u"(x)");
        }
    }
}

TEST(SpellingPass, LeavesNamesWithoutAParenthesis) {
    expectUnchanged(spelling,
                    {u"round", u"round + max", u"round [x]", u"'round' (x)", u"round.x("});
}

TEST(SpellingPass, RewritesTheTailOfALongerWord) {
    expectAll(spelling, {
                            {u"eval(x)", u"eVAL(x)"},
                            {u"Math.exp(x)", u"Math.EXP(x)"},
                            {u"Math.sqrt(x)", u"Math.SQRT(x)"},
                            {u"concat(x)", u"CONCAT(x)"},
                            {u"substr(x)", u"SUBSTR(x)"},
                            {u"myat (x)", u"myAT(x)"},
                            {u"mysubstr(x)", u"mySUBSTR(x)"},
                        });
}

TEST(SpellingPass, TakesNamesFromAnyCatalogue) {
    EXPECT_EQ(ConverterPasses::spellingOf({record(u"FOO"), record(u"_B2")}, u"foo (1)+a_b2(2)"),
              u"FOO(1)+a_B2(2)");
    EXPECT_EQ(ConverterPasses::spellingOf({}, u"round (1)"), u"round (1)");
}

TEST(SpellingPass, AppliesTheRecordsInOrder) {
    EXPECT_EQ(ConverterPasses::spellingOf({record(u"AB"), record(u"B")}, u"ab (ab(b ("),
              u"AB(AB(B(");
}

TEST(SpellingPass, SkipsIncompleteRecords) {
    KxJsFunction incomplete;
    incomplete.setName(u"FOO");
    incomplete.setDescription(u"what it does");
    incomplete.setReturnDescription(u"what it returns");
    incomplete.setBody(u"return 1;");
    EXPECT_EQ(ConverterPasses::spellingOf({incomplete}, u"foo (1)"), u"foo (1)");
    EXPECT_EQ(ConverterPasses::spellingOf({incomplete, record(u"BAR")}, u"foo (bar (1))"),
              u"foo (BAR(1))");
}

TEST(SpellingPass, TakesANameAsThePatternThatItIs) {
    EXPECT_EQ(ConverterPasses::spellingOf({record(u"A.B")}, u"axb (1)"), u"A.B(1)");
    EXPECT_EQ(ConverterPasses::spellingOf({record(u"A+")}, u"xaaa (1)"), u"xA+(1)");
    EXPECT_THROW(ConverterPasses::spellingOf({record(u"A(")}, u"a"), std::invalid_argument);
    EXPECT_THROW(ConverterPasses::spellingOf({record(u"\u00c9")}, u"a"), std::invalid_argument);
}

TEST(SpellingPass, AcceptsCataloguesOfAnyLength) {
    std::vector<KxJsFunction> catalogue;
    std::u16string text;
    std::u16string expected;
    for (char16_t first = u'A'; first <= u'Z'; ++first) {
        for (char16_t second = u'A'; second <= u'Z'; ++second) {
            std::u16string const name{u'Q', first, second};
            catalogue.push_back(record(name));
            text += std::u16string(u"+q") + char16_t(first + 32) + char16_t(second + 32) + u" (";
            expected += u"+" + name + u"(";
        }
    }
    EXPECT_EQ(ConverterPasses::spellingOf(catalogue, text), expected);
}

}  // namespace
