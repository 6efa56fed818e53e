#include <gtest/gtest.h>
#include <string>

#include "columns/PureExpression.h"

namespace {

using Source = char16_t const*;

std::u16string namesOf(Source source) {
    auto const expression = kx::pureExpression(source);
    if (!expression) return u"refused";
    std::u16string names;
    for (auto const& [text, isCalled] : expression->names) {
        names.append(names.empty() ? u"" : u" ").append(text).append(isCalled ? u"()" : u"");
    }
    return names;
}

struct Case {
    Source source;
    Source names;
};

class PureExpression : public testing::TestWithParam<Case> {};

TEST_P(PureExpression, namesWhatTheScopeHasToResolve) {
    EXPECT_EQ(namesOf(GetParam().source), GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(
    expressions, PureExpression,
    testing::Values(Case{u"A*1.2+B/3", u"A B"}, Case{u" ( A + B ) ; ", u"A B"},
                    Case{u"IIF(A>B,A,B)", u"IIF() A B"}, Case{u"IIF (A,IIF,1)", u"IIF A"},
                    Case{u"A<=B", u"A B"}, Case{u"A>=B&&A!==B||A==B", u"A B"},
                    Case{u"A<<2>>>1", u"A"}, Case{u"A>2?B:'it\\'s /*'", u"A B"},
                    Case{u"Math.sqrt(A.length)", u"Math A"}, Case{u"(-A)**2", u"A"},
                    Case{u"A\n+B", u"A B"}, Case{u"1e-3+0x1F+.5+5.", u""},
                    Case{u"'x=1;'+\"{\"", u""}, Case{u"Gr\u00f6\u00dfe/2", u"Gr\u00f6\u00dfe"},
                    Case{u"A?.5:1", u"A"}, Case{u"A ?? B", u"A B"}, Case{u"Math.E*E", u"Math E"},
                    Case{u"A . length", u"A"}, Case{u"A.\nlength", u"A"}, Case{u"1..E", u""},
                    Case{u"1.5.E+E", u"E"}, Case{u"1e5.E", u""}, Case{u"0x1F.E", u""},
                    Case{u"NAME.left(left)", u"NAME left"}, Case{u"A?E:B", u"A E B"},
                    Case{u"\u00B5+A\u00B7", u"\u00B5 A\u00B7"}, Case{u"!A&&!!B", u"A B"},
                    Case{u"A.\u2028length", u"A"}, Case{u"A\u2028+B", u"A B"}, Case{u"A//B", u"A"},
                    Case{u"A/*B*/", u"A"}));

class NoPureExpression : public testing::TestWithParam<Source> {};

TEST_P(NoPureExpression, isRefused) { EXPECT_EQ(namesOf(GetParam()), u"refused"); }

INSTANTIATE_TEST_SUITE_P(
    sources, NoPureExpression,
    testing::Values(u"A=5", u"A+=5", u"A<<=5", u"A>>>=5", u"A&&=5", u"A**=2", u"A++", u"--A",
                    u"A;B", u"A)+(B", u"(A", u"A)", u"[A]", u"A['length']", u"{A}", u"`${A}`",
                    u"/A/", u"A+/B/", u"(/B/)", u"A/ /B/", u"'A", u"A.constructor",
                    u"A.length.constructor", u"1..constructor", u"Math.random()", u"x=>x", u"10n",
                    u"A\\u0042", u"@A", u"#A", u"A<!--B", u"1px", u"0b11", u"A.then", u"-A**2",
                    // Names behind a point that are no members.
                    u"Math.max(...E)", u"Math.max(... E)", u"Math.abs?.(E)", u"Math.abs?. (E)",
                    u"A?.[E]", u"A..E", u"A....E", u"A./**/F", u"A.//\nF", u"A?.length", u"A.#E",
                    u"A.\\u0045", u"A.`E`", u"A.(E)", u"A.5", u"A.'E'", u"A.",
                    // What hides names, or makes others of them.
                    u"017.E+/'/+B+/'/", u"08.5+A", u"1_0+A", u"1.e", u"1.px", u"({E})", u"{E:1}",
                    u"({get E(){return 1}})", u"E`x`", u"E\\u0041", u"\\u{45}", u"A\u200D",
                    u"(/E/)", u"[...E]", u"A=>E", u"#!E", u"\u4E2D+1", u"A\u00D7B"));

}  // namespace
