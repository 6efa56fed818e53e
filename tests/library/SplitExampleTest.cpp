#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

#include "library/Catalogues.h"
#include "library/SplitExample.h"
#include "library/WrongExamples.h"

namespace {

using kx::test::splitExample;

struct Case {
    char16_t const* example;
    char16_t const* call;
    char16_t const* result;
};

TEST(SplitExample, SeparatesTheCallFromTheTextOfItsResult) {
    std::vector<Case> const cases = {
        {u"SIGN(42) &rarr; 1", u"SIGN(42)", u"1"},
        {u"CHAR(62) &rarr; >", u"CHAR(62)", u">"},
        {u"SPACE(2) &rarr; '  '", u"SPACE(2)", u"  "},
        {u"SPACE(0) &rarr; ''", u"SPACE(0)", u""},
        {u"MIN('abc','def') &rarr; 'abc'", u"MIN('abc','def')", u"abc"},
        {u"VAL('x-10.50') &rarr; -10.50", u"VAL('x-10.50')", u"-10.5"},
        {u"VAL('1.0') &rarr; 1.0", u"VAL('1.0')", u"1"},
        {u"STRZ(10.523, 2) &rarr; 0000010.52", u"STRZ(10.523, 2)", u"0000010.52"},
        {u"STRZ(10) &rarr; 0000000010", u"STRZ(10)", u"0000000010"},
        {u"ANTILOG(2) &rarr; 100", u"ANTILOG(2)", u"100"},
        {u"F() &rarr; '10.50'", u"F()", u"10.50"},
        {u"EXP(1) &rarr; Math.E", u"EXP(1)", u"2.718281828459045"},
        {u"ISSPACE('\n\tab') &rarr; true", u"ISSPACE('\\n\\tab')", u"true"},
        {u"F('x') &rarr; false (a remark)", u"F('x')", u"false"},
        {u"F('(a) b') &rarr; ' (a) b'", u"F('(a) b')", u" (a) b"},
    };
    for (Case const& expected : cases) {
        auto const split = splitExample(expected.example);
        ASSERT_TRUE(split) << testing::PrintToString(expected.example);
        EXPECT_EQ(split->call, expected.call);
        EXPECT_EQ(split->result, expected.result);
    }
}

TEST(SplitExample, GivesNothingWithoutAnArrow) {
    EXPECT_FALSE(splitExample(u" "));
    EXPECT_FALSE(splitExample(u"SIGN(42)"));
}

bool isListedAsWrong(std::u16string const& example) {
    return std::any_of(std::begin(kx::test::wrongExamples), std::end(kx::test::wrongExamples),
                       [&](auto const& wrong) { return wrong.example == example; });
}

TEST(SplitExample, EveryExampleCallsItsFunctionUnlessListedAsWrong) {
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) {
            for (std::u16string const& example : function.getExamples()) {
                if (isListedAsWrong(example)) continue;
                auto const split = splitExample(example);
                ASSERT_TRUE(split) << testing::PrintToString(example);
                EXPECT_TRUE(split->call.starts_with(function.getName() + u"("))
                    << testing::PrintToString(example);
            }
        }
    }
}

TEST(WrongExamples, EachStandsInTheCatalogues) {
    for (auto const& wrong : kx::test::wrongExamples) {
        bool found = false;
        for (auto const& catalogue :
             {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
            for (KxJsFunction const& function : catalogue) {
                auto const& examples = function.getExamples();
                found |=
                    std::find(examples.begin(), examples.end(), wrong.example) != examples.end();
            }
        }
        EXPECT_TRUE(found) << testing::PrintToString(wrong.example);
    }
}

}  // namespace
