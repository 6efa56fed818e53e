#include <gtest/gtest.h>
#include <string>

#include "Dump.h"
#include "expression/Parser.h"

namespace {

using kx::Expression;
using Reason = kx::Refusal::Reason;

std::u16string treeOf(std::u16string_view source) {
    auto const parsed = kx::parseExpression(source);
    auto const* expression = std::get_if<Expression>(&parsed);
    return expression == nullptr ? u"refused" : dump(*expression);
}

struct TreeCase {
    char16_t const* source;
    char16_t const* tree;
};

class Trees : public testing::TestWithParam<TreeCase> {};

TEST_P(Trees, areBuiltAsJavaScriptReads) { EXPECT_EQ(treeOf(GetParam().source), GetParam().tree); }

INSTANTIATE_TEST_SUITE_P(
    operators, Trees,
    testing::Values(
        TreeCase{u"A+B*C", u"(+ A (* B C))"}, TreeCase{u"A*B+C", u"(+ (* A B) C)"},
        TreeCase{u"A-B-C", u"(- (- A B) C)"}, TreeCase{u"A**B**C", u"(** A (** B C))"},
        TreeCase{u"(A+B)*C", u"(* (+ A B) C)"}, TreeCase{u"-A*B", u"(* (- A) B)"},
        TreeCase{u"-(-A)", u"(- (- A))"}, TreeCase{u"- -A", u"(- (- A))"},
        TreeCase{u"!A&&!B||C", u"(|| (&& (! A) (! B)) C)"}, TreeCase{u"A==B&C", u"(& (== A B) C)"},
        TreeCase{u"A|B^C&D", u"(| A (^ B (& C D)))"}, TreeCase{u"A<B==C", u"(== (< A B) C)"},
        TreeCase{u"A<<B+C", u"(<< A (+ B C))"}, TreeCase{u"A>>>B>>C", u"(>> (>>> A B) C)"},
        TreeCase{u"A??B??C", u"(\?\? (\?\? A B) C)"},
        TreeCase{u"A\?\?(B||C)", u"(\?\? A (|| B C))"}, TreeCase{u"A**-B", u"(** A (- B))"},
        TreeCase{u"(-A)**B", u"(** (- A) B)"}, TreeCase{u"A,B,C", u"(, (, A B) C)"},
        TreeCase{u"typeof A.B", u"(typeof (.B A))"}, TreeCase{u"void 0", u"(void 0)"},
        TreeCase{u"A?B:C?D:E", u"(?: A B (?: C D E))"},
        TreeCase{u"A?B?C:D:E", u"(?: A (?: B C D) E)"},
        TreeCase{u"A||B?C+1:D-1", u"(?: (|| A B) (+ C 1) (- D 1))"},
        TreeCase{u"A?.5:1", u"(?: A .5 1)"}, TreeCase{u"A!==B", u"(!== A B)"}));

INSTANTIATE_TEST_SUITE_P(
    operands, Trees,
    testing::Values(
        TreeCase{u"IIF(A>B,A,B)", u"(call IIF (> A B) A B)"}, TreeCase{u"F()", u"(call F)"},
        TreeCase{u"F( )(1)", u"(call (call F) 1)"}, TreeCase{u"A.B.C", u"(.C (.B A))"},
        TreeCase{u"A.if", u"(.if A)"}, TreeCase{u"A . /**/ length", u"(.length A)"},
        TreeCase{u"A.substr(1,2).length", u"(.length (call (.substr A) 1 2))"},
        TreeCase{u"A[0][1]", u"([] ([] A 0) 1)"}, TreeCase{u"F((A,B),C)", u"(call F (, A B) C)"},
        TreeCase{u"1..x", u"(.x 1.)"}, TreeCase{u"1.5e+3+0x1F", u"(+ 1.5e+3 0x1F)"},
        TreeCase{u"true&&false||null", u"(|| (&& true false) null)"},
        TreeCase{u"'a\"b'+\"c'd\"", u"(+ 'a\"b' 'c\\u0027d')"},
        TreeCase{u"'\\n\\'\\\\\\x41\\u0042\\q'", u"'\\u000a\\u0027\\u005cABq'"},
        TreeCase{u"Gr\u00f6\u00dfe/2", u"(/ Gr\u00f6\u00dfe 2)"}, TreeCase{u" A ; ", u"A"},
        TreeCase{u"A//B", u"A"}, TreeCase{u"A/*B*/+C", u"(+ A C)"}, TreeCase{u"A\n+B", u"(+ A B)"},
        TreeCase{u"A\n(B)", u"(call A B)"}, TreeCase{u"'\u2028'", u"'\\u2028'"},
        TreeCase{u"((A))", u"A"}));

INSTANTIATE_TEST_SUITE_P(
    assignments, Trees,
    testing::Values(TreeCase{u"A=3", u"(= A 3)"}, TreeCase{u"A=B=3", u"(= A (= B 3))"},
                    TreeCase{u"A=>3", u"(=> A 3)"}, TreeCase{u"A=>B,C", u"(, (=> A B) C)"},
                    TreeCase{u"A=>B?C:D", u"(=> A (?: B C D))"},
                    TreeCase{u"A.B+=1", u"(+= (.B A) 1)"}, TreeCase{u"A\?\?=1", u"(\?\?= A 1)"},
                    TreeCase{u"A?B:C=3", u"(?: A B (= C 3))"},
                    TreeCase{u"IIF(A=3,1,A=>2)", u"(call IIF (= A 3) 1 (=> A 2))"},
                    TreeCase{u"(A=3)||B", u"(|| (= A 3) B)"}));

struct RefusalCase {
    char16_t const* source;
    Reason reason;
    std::uint32_t start;
    std::uint32_t end;
};

class Refusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(Refusals, tellWhatTheyMet) {
    auto const parsed = kx::parseExpression(GetParam().source);
    auto const* refusal = std::get_if<kx::Refusal>(&parsed);
    ASSERT_NE(refusal, nullptr);
    EXPECT_EQ(refusal->reason, GetParam().reason);
    EXPECT_EQ(refusal->place.start, GetParam().start);
    EXPECT_EQ(refusal->place.end, GetParam().end);
}

INSTANTIATE_TEST_SUITE_P(all, Refusals,
                         testing::Values(RefusalCase{u"", Reason::empty, 0, 0},
                                         RefusalCase{u" ", Reason::empty, 1, 1},
                                         RefusalCase{u"A+", Reason::syntaxError, 2, 2},
                                         RefusalCase{u"(A", Reason::syntaxError, 2, 2},
                                         RefusalCase{u"A)", Reason::syntaxError, 1, 2},
                                         RefusalCase{u"A)+(B", Reason::syntaxError, 1, 2},
                                         RefusalCase{u"A B", Reason::syntaxError, 2, 3},
                                         RefusalCase{u"A\nB", Reason::statement, 2, 3},
                                         RefusalCase{u"A;B", Reason::statement, 1, 2},
                                         RefusalCase{u"if(A)B", Reason::statement, 0, 2},
                                         RefusalCase{u"A+B=3", Reason::syntaxError, 3, 4},
                                         RefusalCase{u"A+B=>3", Reason::syntaxError, 3, 5},
                                         RefusalCase{u"3=A", Reason::syntaxError, 1, 2},
                                         RefusalCase{u"(A)=>3", Reason::function, 3, 5},
                                         RefusalCase{u"A\n=>3", Reason::syntaxError, 2, 4},
                                         RefusalCase{u"-A**2", Reason::syntaxError, 2, 4},
                                         RefusalCase{u"A||B??C", Reason::syntaxError, 7, 7},
                                         RefusalCase{u"A??B&&C", Reason::syntaxError, 7, 7},
                                         RefusalCase{u"A?B,C:D", Reason::syntaxError, 3, 4},
                                         RefusalCase{u"F(A,)", Reason::syntaxError, 4, 5},
                                         RefusalCase{u"A.5", Reason::unsupported, 2, 3},
                                         RefusalCase{u"017", Reason::unsupported, 0, 1},
                                         RefusalCase{u"10n", Reason::unsupported, 0, 2},
                                         RefusalCase{u"1e999", Reason::unsupported, 0, 5},
                                         RefusalCase{u"'A", Reason::syntaxError, 0, 2},
                                         RefusalCase{u"'A\n'", Reason::syntaxError, 0, 2},
                                         RefusalCase{u"'\\012'", Reason::unsupported, 1, 2},
                                         RefusalCase{u"/A/", Reason::regularExpression, 0, 1},
                                         RefusalCase{u"`A`", Reason::templateText, 0, 1},
                                         RefusalCase{u"F`A`", Reason::templateText, 1, 2},
                                         RefusalCase{u"[A]", Reason::objectOrArray, 0, 1},
                                         RefusalCase{u"{A}", Reason::objectOrArray, 0, 1},
                                         RefusalCase{u"A++", Reason::increment, 1, 3},
                                         RefusalCase{u"--A", Reason::increment, 0, 1},
                                         RefusalCase{u"A-->B", Reason::increment, 1, 3},
                                         RefusalCase{u"A<!--B", Reason::unsupported, 1, 5},
                                         RefusalCase{u"A?.B", Reason::unsupported, 1, 3},
                                         RefusalCase{u"new A", Reason::unsupported, 0, 3},
                                         RefusalCase{u"A in B", Reason::unsupported, 2, 4},
                                         RefusalCase{u"F(...A)", Reason::syntaxError, 2, 3},
                                         RefusalCase{u"function(){}", Reason::function, 0, 8},
                                         RefusalCase{u"\u4e2d", Reason::unsupported, 0, 1},
                                         RefusalCase{u"A\\u0042", Reason::unsupported, 1, 2},
                                         RefusalCase{u"A/*", Reason::syntaxError, 1, 3},
                                         RefusalCase{u"@A", Reason::syntaxError, 0, 1},
                                         RefusalCase{u"A#", Reason::syntaxError, 1, 2},
                                         RefusalCase{u"let", Reason::statement, 0, 3}));

TEST(Places, areThoseInTheSource) {
    std::u16string_view const source = u" ( A + B.length ) * F( 'x' )";
    auto const parsed = kx::parseExpression(source);
    auto const& expression = std::get<Expression>(parsed);
    std::u16string places;
    for (kx::Node const& node : expression.nodes()) {
        places += source.substr(node.place.start, node.place.end - node.place.start);
        places += node.isParenthesized ? u"()|" : u"|";
    }
    EXPECT_EQ(places, u"A|B|B.length|A + B.length()|F|'x'|F( 'x' )|( A + B.length ) * F( 'x' )|");
}

TEST(Values, areThoseOfTheLiterals) {
    auto const parsed = kx::parseExpression(u"1.5e3+0x1F+true");
    auto const& nodes = std::get<Expression>(parsed).nodes();
    EXPECT_EQ(nodes[0].number, 1500);
    EXPECT_EQ(nodes[1].number, 31);
    EXPECT_EQ(nodes[3].number, 1);
}

std::u16string repeated(std::u16string_view text, std::size_t count) {
    std::u16string result;
    for (; count > 0; --count) result += text;
    return result;
}

TEST(DeepSources, areRefused) {
    for (std::u16string_view const part :
         {u"(", u"- ", u"F(", u"A?", u"A+(", u"A[", u"A=", u"A=>"}) {
        auto const parsed = kx::parseExpression(repeated(part, 10'000) + u"A");
        ASSERT_TRUE(std::holds_alternative<kx::Refusal>(parsed));
        EXPECT_EQ(std::get<kx::Refusal>(parsed).reason, Reason::tooComplex);
    }
    for (std::u16string_view const part : {u"+A", u".A", u"()", u"[0]"}) {
        auto const parsed = kx::parseExpression(u"A" + repeated(part, 10'000));
        ASSERT_TRUE(std::holds_alternative<kx::Refusal>(parsed));
        EXPECT_EQ(std::get<kx::Refusal>(parsed).reason, Reason::tooComplex);
    }
    EXPECT_EQ(std::get<kx::Refusal>(kx::parseExpression(repeated(u" ", 70'000))).reason,
              Reason::tooComplex);
    EXPECT_EQ(treeOf(repeated(u"(", 200) + u"A" + repeated(u")", 200)), u"A");
}

TEST(WideSources, areAccepted) {
    auto const parsed = kx::parseExpression(u"F(A" + repeated(u",A", 20'000) + u")");
    EXPECT_EQ(std::get<Expression>(parsed).root().childCount, 20'002U);
}

}  // namespace
