#include <gtest/gtest.h>

#include "Cases.h"
#include "ConverterPasses.h"

namespace {

auto const strings = ConverterPasses::strings;

TEST(StringPass, RewritesEveryFunction) {
    expectAll(strings, {
                           {u"trim(name)", u" RTRIM(name) "},
                           {u"REPLICATE(s,3)", u" REPEAT(s,3) "},
                           {u"REPL(s,3)", u" REPEAT(s,3) "},
                           {u"REPEAT(s,3)", u" REPEAT(s,3) "},
                           {u"LEN(s)", u" LEN(s) "},
                           {u"LENGTH(s)", u" LEN(s) "},
                           {u"UPPER(a)", u" UPPERCASE(a) "},
                           {u"UCASE(a)", u" UPPERCASE(a) "},
                           {u"LOWER(a)", u" LOWERCASE(a) "},
                           {u"LCASE(a)", u" LOWERCASE(a) "},
                           {u"CHAR(65)", u" CHAR(65) "},
                           {u"CHR(65)", u" CHAR(65) "},
                           {u"ASCII(s)", u" ASCII(s) "},
                           {u"ASC(s)", u" ASCII(s) "},
                           {u"LEFT(s,2)", u" LEFT(s, 2) "},
                           {u"RIGHT(s,2)", u" RIGHT(s, 2) "},
                           {u"SUBSTR(s,1,2)", u" SUBSTR(s,1,2) "},
                           {u"SUBS(s,1,2)", u" SUBSTR(s,1,2) "},
                           {u"SUBSTRING(s,1,2)", u" SUBSTR(s,1,2) "},
                           {u"STUFF(s,2,0,x)", u" INSERT(s,2,0,x) "},
                           {u"INSERT(s,2,0,x)", u" INSERT(s,2,0,x) "},
                       });
}

TEST(StringPass, JoinsTheTrimmingNames) {
    expectAll(strings, {
                           {u"LTRIM(a)", u"LTRIM(a) "},
                           {u"RTRIM(a)", u"RTRIM(a) "},
                           {u"ALLTRIM(a)", u"ALLTRIM(a) "},
                           {u"lTrim(a)", u"lTRIM(a) "},
                           {u"AllTrim (a)", u"AllTRIM(a) "},
                           {u"STRTRIM(a)", u"STRTRIM(a) "},
                           {u"l rtrim", u"lTRIM"},
                           {u"L RTRIM(x)", u"L RTRIM(x) "},
                       });
}

TEST(StringPass, JoinsOnlyOverExactlyOneBlank) {
    expectAll(strings, {
                           {u"L TRIM(a)", u"L  RTRIM(a) "},
                           {u"ALL TRIM(a)", u"ALL  RTRIM(a) "},
                           {u"XTRIM(a)", u"X RTRIM(a) "},
                       });
    expectUnchanged(strings, {u"L\tRTRIM", u"L\u00a0RTRIM", u"L  RTRIM", u"LRTRIM"});
}

TEST(StringPass, LeavesLongerNamesThatOnlyBeginAlike) {
    expectUnchanged(strings, {u"REPLACE(a,b,c)", u"UPPERCASE(a)", u"LOWERCASE(a)", u"LENGTHS(a)",
                              u"TRIMMED(a)", u"CHARS(a)"});
}

TEST(StringPass, NeedsArguments) {
    expectUnchanged(strings, {u"LEN()", u"TRIM()", u"LEFT(s)", u"LEFT(s,)", u"LEFT(,2)", u"REPL(s)",
                              u"SUBSTR()", u"LEN(s", u"RIGHT(s,2"});
}

TEST(StringPass, SplitsAtTheFirstCommaAndEndsAtTheFirstParenthesis) {
    expectAll(strings, {
                           {u"LEFT(MAX(a,b),c)", u" LEFT(MAX(a, b) ,c)"},
                           {u"RIGHT(s,LEN(s))", u" RIGHT(s,  LEN(s)  )"},
                           {u"REPL(f(a),b)", u" REPEAT(f(a),b) "},
                           {u"SUBSTR(s,f(1),2)", u" SUBSTR(s,f(1) ,2)"},
                       });
}

TEST(StringPass, RewritesQuotedText) {
    expectAll(strings, {{u"'LEN(x)'", u"' LEN(x) '"}, {u"\"chr(1)\"", u"\" CHAR(1) \""}});
}

}  // namespace
