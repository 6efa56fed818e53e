#include <gtest/gtest.h>

#include "Cases.h"
#include "ConverterPasses.h"

namespace {

auto const operators = ConverterPasses::operators;

TEST(OperatorPass, RewritesWordOperatorsBetweenWhiteSpace) {
    expectAll(operators, {
                             {u"a AND b", u"a && b"},
                             {u"a or b", u"a || b"},
                             {u"a = Not b", u"a = ! b"},
                             {u"a xor b", u"a XOR b"},
                             {u"7 div 2", u"7 / 2"},
                             {u"a\tAND\nb", u"a && b"},
                             {u"a AND b OR NOT c", u"a && b || ! c"},
                             {u"a  AND  b", u"a && b"},
                         });
}

TEST(OperatorPass, AcceptsAnyCharacterOnEachSideOfAWord) {
    expectAll(operators, {
                             {u"a .AND. b", u"a && b"},
                             {u"a .or. b", u"a || b"},
                             {u" .NOT. b", u" ! b"},
                             {u" (NOT) ", u" ! "},
                             {u"a .XOR. b", u"a XOR b"},
                             {u"a xANDy b", u"a && b"},
                             {u"a  OR  b", u"a || b"},
                             {u"a \u4e2dOR\u6587 b", u"a || b"},
                         });
    expectUnchanged(operators, {u"a .DIV. b", u"a .AND b"});
}

TEST(OperatorPass, DoesNotTakeALineEndForTheCharacterBesideAWord) {
    // The form without dots matches if the character beside the word is white space.
    expectAll(operators, {
                             {u" \nNOT\n ", u"  !  "},
                             {u" \u2028NOT\u2028 ", u"  !  "},
                         });
    expectUnchanged(operators, {u"a\nNOT. ", u" .NOT\r", u" .NOT\u2029x", u"x .NOT\u2028y"});
}

TEST(OperatorPass, LeavesWordsWithoutWhiteSpaceOnBothSides) {
    expectUnchanged(operators, {u"NOT a", u"a NOT", u"a.AND.b", u"aANDb", u"(a)AND(b)", u"NOT",
                                u"a AND", u"AND b", u".NOT. a", u"a .OR."});
}

TEST(OperatorPass, RewritesOnlyTheFirstOfTwoWordsAroundOneBlank) {
    expectAll(operators, {
                             {u"NOT NOT x", u"NOT ! x"},
                             {u" NOT NOT x", u" ! NOT x"},
                             {u" NOT  NOT x", u" !  ! x"},
                             {u"a AND AND b", u"a && AND b"},
                             {u"a OR AND b", u"a || && b"},
                         });
}

TEST(OperatorPass, RewritesComparisons) {
    expectAll(operators, {
                             {u"x >= 1", u"x => 1"},
                             {u"x =< 1", u"x <= 1"},
                             {u"x <> 1", u"x != 1"},
                             {u"x /= 1", u"x != 1"},
                         });
    expectUnchanged(operators, {u"x = 1", u"x <= 1", u"x < 1", u"x > 1", u"x == 1", u"x => 1"});
}

TEST(OperatorPass, LeavesAnOperatorAtTheVeryEnd) {
    expectAll(operators, {{u"a<>b", u"a!=b"}, {u"a<> ", u"a!= "}});
    expectUnchanged(operators, {u"a<>", u"<>", u"a>=", u"a\\", u"\\", u"2**"});
}

TEST(OperatorPass, LeavesQuotedOperators) {
    expectUnchanged(operators, {u"'a<>b'", u"\"a<>b\"", u"'a\\b' ", u"'2**3' "});
    expectAll(operators, {
                             {u"'a<>b' <> c", u"'a<>b' != c"},
                             {u"x '\\' <> y'<>z", u"x '\\' <> y'!=z"},
                             {u"\"it's <> \" <> x", u"\"it's != \" <> x"},
                         });
}

TEST(OperatorPass, RewritesBackslashes) {
    expectAll(operators, {
                             {u"a\\b", u"a/b"},
                             {u"a\\\\b", u"a/\\b"},
                             {u"a\\\\\\b", u"a/\\/b"},
                         });
}

TEST(OperatorPass, RewritesPowersOfNumbers) {
    expectAll(operators, {
                             {u"2^3", u" Math.pow(2,3) "},
                             {u"2**3", u" Math.pow(2,3) "},
                             {u"2 ^ 3", u" Math.pow(2 ,3) "},
                             {u"2  ^  3", u" Math.pow(2 ,3) "},
                             {u"1.5^2.25", u" Math.pow(1.5,2.25) "},
                             {u"1,5^2", u" Math.pow(1,5,2) "},
                             {u"a2^3b", u"a Math.pow(2,3b) "},
                             {u"2^3+1", u" Math.pow(2,3+1) "},
                             {u"2^3 + 1", u" Math.pow(2,3 ) + 1"},
                         });
}

TEST(OperatorPass, TakesAnyCharacterInsideANumberOfAPower) {
    expectAll(operators, {
                             {u"2^3^4", u" Math.pow(2^3,4) "},
                             {u"1^^2", u" Math.pow(1^,2) "},
                             {u"12 34^5", u" Math.pow(12 34,5) "},
                             {u"1.2.3^4", u"1. Math.pow(2.3,4) "},
                             {u"1 2  ^3", u" Math.pow(1 2,3) "},
                             {u"2^3.^4", u" Math.pow(2,3.) ^4"},
                             {u"1\n^2", u" Math.pow(1,2) "},
                             {u"1\n2^3", u"1\n Math.pow(2,3) "},
                             {u"2^3^4^5", u" Math.pow(2^3,4^5) "},
                             {u"2^3^4^5^6", u" Math.pow(2^3,4^5) ^6"},
                             {u"1-2^3", u" Math.pow(1-2,3) "},
                             {u"(1)^2", u"( Math.pow(1),2) "},
                         });
}

TEST(OperatorPass, LeavesPowersOfAnythingElse) {
    expectUnchanged(operators, {u"x^2", u"2^x", u"(x)^2", u"2^(3)", u"2^-3", u"^2", u"2^", u"2^^"});
    expectAll(operators, {{u"x**2", u"x^2"}, {u"x**2 ", u"x^2 "}});
}

TEST(OperatorPass, RewritesTruthValuesInAnyPlace) {
    expectAll(operators, {
                             {u"TRUE", u" true "},
                             {u"False", u" false "},
                             {u"ISTRUE(x)", u"IS true (x)"},
                             {u"'TRUE'", u"' true '"},
                             {u"untruefalse", u"un true  false "},
                         });
}

TEST(OperatorPass, LetsLaterStepsSeeWhatEarlierStepsWrote) {
    expectAll(operators, {
                             {u"a >=< b", u"a =>< b"},
                             {u"a </= b", u"a <!= b"},
                             {u"a ==<> b", u"a ==!= b"},
                             {u"a **2^3", u"a ^ Math.pow(2,3) "},
                             {u"3**4", u" Math.pow(3,4) "},
                             {u"a=<>=b", u"a<==>b"},
                         });
}

TEST(OperatorPass, FoldsOnlyAsciiLetters) {
    // U+017F is a small s in patterns with the flag "u" only.
    expectUnchanged(operators, {u"FAL\u017fE", u"fal\u017fe"});
}

TEST(OperatorPass, LeavesAnEmptyText) { EXPECT_EQ(operators(u""), u""); }

}  // namespace
