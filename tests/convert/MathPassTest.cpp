#include <gtest/gtest.h>

#include "Cases.h"
#include "ConverterPasses.h"

namespace {

auto const math = ConverterPasses::math;

TEST(MathPass, RewritesEveryFunction) {
    expectAll(math, {
                        {u"SIN(x)", u" Math.sin(x) "},
                        {u"COS(x)", u" Math.cos(x) "},
                        {u"TAN(x)", u" Math.tan(x) "},
                        {u"TG(x)", u" Math.tan(x) "},
                        {u"COT(x)", u" (1/Math.tan(x)) "},
                        {u"ASN(x)", u" Math.asin(x) "},
                        {u"ACS(x)", u" Math.acos(x) "},
                        {u"ATN(x)", u" Math.atan(x) "},
                        {u"ATAN2(y,x)", u" Math.atan2(y,x) "},
                        {u"LOG(x)", u" LOG(x) "},
                        {u"LN(2)", u" LOG(2) "},
                        {u"LOG10(100)", u" LOG(100,10) "},
                        {u"EXP(x)", u" Math.exp(x) "},
                        {u"SQRT(x)", u" Math.sqrt(x) "},
                        {u"SQR(x)", u" Math.sqrt(x) "},
                        {u"MOD(a,b)", u" ( a % b ) "},
                        {u"POWER(2,3)", u" Math.pow(2,Math. Math.floor(3) ) "},
                        {u"RAND()", u" Math.random() "},
                        {u"RAND(5)", u" Math.random(5) "},
                        {u"FLOOR(x)", u" Math.floor(x) "},
                        {u"INT(2.7)", u" Math.floor(2.7) "},
                        {u"CEIL(x)", u" Math.ceil(x) "},
                        {u"CEILING(2.1)", u" Math.ceil(2.1) "},
                        {u"ABS(x)", u" Math.abs(x) "},
                        {u"SIGN(-3)", u" SIGN(SIGN) "},
                        {u"SGN(x)", u" SIGN(SGN) "},
                        {u"DEGREES(x)", u" DEGREES(x) "},
                        {u"RTOD(1)", u" DEGREES(1) "},
                        {u"RADIANS(x)", u" RADIANS(x) "},
                        {u"DTOR(180)", u" RADIANS(180) "},
                    });
}

TEST(MathPass, AcceptsAnyCaseAndWhiteSpaceBeforeTheParenthesis) {
    expectAll(math, {
                        {u"sin(x)", u" Math.sin(x) "},
                        {u"Sin (x)", u" Math.sin(x) "},
                        {u"sIn\t\n\u00a0\u3000(x)", u" Math.sin(x) "},
                        {u"sgn (x)", u" SIGN(sgn) "},
                    });
}

TEST(MathPass, TakesTheTailOfALongerName) {
    expectAll(math, {
                        {u"ASIN(x)", u"A Math.sin(x) "},
                        {u"ACOS(x)", u"A Math.cos(x) "},
                        {u"ATAN(x)", u"A Math.tan(x) "},
                        {u"ATG(x)", u"A Math.tan(x) "},
                        {u"PRINT(x)", u"PR Math.floor(x) "},
                        {u"ANTILOG(x)", u"ANTI LOG(x) "},
                        {u"ANTILOG10(x)", u"ANTI LOG(x,10) "},
                    });
}

TEST(MathPass, NeedsAnArgumentExceptForRandom) {
    expectUnchanged(math, {u"SIN()", u"COT()", u"ATAN2(,x)", u"ATAN2(y,)", u"MOD(,)", u"MOD(a)",
                           u"POWER(a)", u"INT ()", u"SIN(x", u"RAND(", u"RAND", u"SIN", u"SIN)x("});
}

TEST(MathPass, EndsAnArgumentAtTheFirstClosingParenthesis) {
    expectAll(math, {
                        {u"SIN(ABS(x))", u" Math.sin( Math.abs(x)  )"},
                        {u"SIN((a+b)*c)", u" Math.sin((a+b) *c)"},
                        {u"SIN(\n)", u" Math.sin(\n) "},
                        {u"SIN(SIN(x))", u" Math.sin(SIN(x) )"},
                        {u"RAND(RAND())", u" Math.random(RAND() )"},
                    });
}

TEST(MathPass, SplitsTwoArgumentsAtTheFirstComma) {
    expectAll(math, {
                        {u"MOD(MAX(a,b),c)", u" ( MAX(a % b ) ,c)"},
                        {u"POWER(a,b,c)", u" Math.pow(a,Math. Math.floor(b,c) ) "},
                        {u"MOD(a),b)", u" ( a) % b ) "},
                        {u"ATAN2(a(b,c)", u" Math.atan2(a(b,c) "},
                    });
}

TEST(MathPass, LetsLaterRulesSeeWhatEarlierRulesWrote) {
    expectAll(math, {
                        {u"ABS COT(x)", u" Math.abs(1/Math.tan(x) ) "},
                        {u"INT MOD(a,b)", u" Math.floor( a % b )  "},
                        {u"TAN COS(x)", u"TAN  Math.cos(x) "},
                    });
}

TEST(MathPass, RewritesQuotedText) { expectAll(math, {{u"'SIN(x)'", u"' Math.sin(x) '"}}); }

}  // namespace
