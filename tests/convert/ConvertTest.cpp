#include <gtest/gtest.h>
#include <string>

#include "Cases.h"
#include "convert/Converter.h"

namespace {

std::u16string converted(std::u16string const& formula) {
    return Converter::_convert(formula.c_str());
}

TEST(Convert, RewritesWholeFormulas) {
    expectAll(converted, {
                             {u"IF(A >= 1 .AND. TRIM(s) <> 'x', SQRT(4), 0)",
                              u" IIF(A => 1 && RTRIM(s) != 'x', Math.SQRT(4) , 0)"},
                             {u"IIF(A>2 .AND. B<>0,'OK','KO')", u" IIF(A>2 && B!=0,'OK','KO')"},
                             {u"IF(TRUE, 1, 0)", u" IIF( true , 1, 0)"},
                             {u"a AND b OR NOT c", u"a && b || ! c"},
                         });
}

TEST(Convert, RunsThePassesInOrder) {
    expectAll(converted, {
                             {u"EXP(x)", u" Math.EXP(x) "},
                             {u"exp(1)", u" Math.EXP(1) "},
                             {u"SQR(x)", u" Math.SQRT(x) "},
                             {u"EVAL(x)", u" eVAL(x) "},
                             {u"EVALUATE(s)", u" eVAL(s) "},
                             {u"switch(x)", u" SWITCH(x) "},
                             {u"if (a, b, c)", u" IIF(a, b, c)"},
                             {u"POWER(2,3)", u" Math.pow(2,Math. Math.floor(3) ) "},
                             {u"SIN(ABS(x))", u" Math.sin( Math.abs(x) )"},
                             {u"RIGHT(s,LEN(s))", u" RIGHT(s, LEN(s) )"},
                             {u"2**3", u" Math.pow(2,3) "},
                             {u"x**2", u"x^2"},
                             {u"NOT NOT x", u"NOT ! x"},
                             {u"STR(TRIM(a))", u"STR( RTRIM(a) )"},
                             {u"ABS L TRIM(x)", u"ABS L RTRIM(x) "},
                         });
}

TEST(Convert, FoldsEveryKindOfWhiteSpace) {
    expectAll(converted, {
                             {u"a\tb\nc\vd\fe\rf", u"a b c d e f"},
                             {u"a\u00a0b\u1680c\u2000d\u200ae\u2028f\u2029g", u"a b c d e f g"},
                             {u"a\u202fb\u205fc\u3000d\ufeffe", u"a b c d e"},
                             {u"a \t\r\n\u3000 b", u"a b"},
                             {u"  a  ", u" a "},
                             {u" \t ", u" "},
                             {u"\n", u" "},
                         });
    expectUnchanged(converted,
                    {u"a\u0085b", u"a\u180eb", u"a\u200bb", u"a\u2060b", u"a\u001fb", u" "});
}

TEST(Convert, LeavesIdleText) {
    expectUnchanged(
        converted, {u"", u"x", u"x = 1", u"price * quantity", u"Ünïcödé 中文 \U0001F600", u"'text'",
                    u"f(x)", u"()", u"\xd800", u"a\xdc00\xd800z"});
}

TEST(Convert, EndsAtTheFirstZero) {
    EXPECT_EQ(Converter::_convert(u"a<>b\0c<>d"), u"a!=b");
    EXPECT_EQ(Converter::_convert(u"\0a"), u"");
}

TEST(Convert, TakesANullPointerForAnEmptyFormula) { EXPECT_EQ(Converter::_convert(nullptr), u""); }

TEST(Convert, KeepsQuotesAndBackslashes) {
    expectAll(converted, {
                             {u"'a<>b' + \"c>=d\"", u"'a<>b' + \"c>=d\""},
                             {u"a\\b + 'c\\d'", u"a/b + 'c\\d'"},
                             {u"'it\\'s' <> x", u"'it\\'s' != x"},
                             {u"'SIN(x)' + '  '", u"' Math.sin(x) ' + ' '"},
                         });
}

TEST(Convert, RewritesLongText) {
    std::u16string formula;
    std::u16string expected;
    for (int i = 0; i < 20000; ++i) {
        formula += u"a <> b .AND. ";
        expected += u"a != b && ";
    }
    EXPECT_EQ(converted(formula), expected);

    std::u16string nested(100000, u'(');
    EXPECT_EQ(converted(u"SIN" + nested), u"SIN" + nested);
    EXPECT_EQ(converted(std::u16string(100000, u'1') + u"^2"),
              u" Math.pow(" + std::u16string(100000, u'1') + u",2) ");
    EXPECT_EQ(converted(std::u16string(100000, u' ')), u" ");
}

}  // namespace
