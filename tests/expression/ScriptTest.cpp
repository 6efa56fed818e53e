// Which scripts compile, and which of them are expressions. V8 has the last word.
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "expression/Script.h"
#include "host/ScriptHost.h"
#include "text/NumberText.h"

namespace {

enum class Form : std::uint8_t { expression, other, refused };

Form formOf(std::u16string_view source) {
    auto const parsed = kx::parseScript(source);
    if (std::holds_alternative<kx::Expression>(parsed)) return Form::expression;
    return std::holds_alternative<kx::OtherScript>(parsed) ? Form::other : Form::refused;
}

bool compiles(ScriptHost& host, std::u16string const& source) {
    std::u16string error;
    return host.host.parse(source, error) != -1;
}

struct Row {
    Form form;
    char16_t const* source;
};

class Scripts : public testing::TestWithParam<Row> {};

TEST_P(Scripts, compileAsWithTheEngine) {
    ScriptHost host;
    EXPECT_EQ(formOf(GetParam().source), GetParam().form);
    EXPECT_EQ(compiles(host, GetParam().source), GetParam().form != Form::refused);
}

INSTANTIATE_TEST_SUITE_P(
    expressions, Scripts,
    testing::Values(Row{Form::expression, u"A+1;"}, Row{Form::expression, u"let+await"},
                    Row{Form::expression, u"async(yield)"}, Row{Form::expression, u"010+08.5"},
                    Row{Form::expression, u"007.or"}, Row{Form::expression, u"A=>B"},
                    Row{Form::other, u""}, Row{Form::refused, u"A+"}, Row{Form::refused, u"A B"},
                    Row{Form::refused, u"010.5"}, Row{Form::refused, u"010n"},
                    Row{Form::refused, u"A)"}));

INSTANTIATE_TEST_SUITE_P(lists, Scripts,
                         testing::Values(Row{Form::other, u"[]"}, Row{Form::other, u"[A,1,]"},
                                         Row{Form::other, u"[,,A].length"},
                                         Row{Form::other, u"A+{}"},
                                         Row{Form::other, u"F({A,B:1,})"},
                                         Row{Form::other, u"F(A,)"}, Row{Form::refused, u"[A"},
                                         Row{Form::refused, u"(A]"}, Row{Form::refused, u"[A)"},
                                         Row{Form::refused, u"[A B]"}, Row{Form::refused, u"A+{1}"},
                                         Row{Form::refused, u"({A)"}, Row{Form::refused, u"A+{if}"},
                                         Row{Form::refused, u"F(,)"}, Row{Form::refused, u"(A,)"},
                                         Row{Form::refused, u"A?[B"}));

INSTANTIATE_TEST_SUITE_P(
    targets, Scripts,
    testing::Values(
        Row{Form::other, u"F(A)=B"}, Row{Form::other, u"(F())+=1"},
        Row{Form::other, u"[A,,B.C,[D[0]],E=1]=F"}, Row{Form::other, u"({A,B:C}=D)"},
        Row{Form::refused, u"1+F(A)=B"}, Row{Form::refused, u"F(A)&&=B"},
        Row{Form::refused, u"[1]=B"}, Row{Form::refused, u"[F()]=B"},
        Row{Form::refused, u"([A])=B"}, Row{Form::refused, u"[A]+=B"},
        Row{Form::refused, u"[A+=1]=B"}, Row{Form::refused, u"this=B"}, Row{Form::other, u"A++"},
        Row{Form::other, u"(A.B)--"}, Row{Form::other, u"-++A[0]"}, Row{Form::other, u"++F()+B++"},
        Row{Form::other, u"++A**2"}, Row{Form::refused, u"-A**2"}, Row{Form::refused, u"++A++"},
        Row{Form::refused, u"++A=1"}, Row{Form::refused, u"A++.B"}, Row{Form::refused, u"A++(B)"},
        Row{Form::refused, u"[A]++"}, Row{Form::refused, u"++1"}, Row{Form::refused, u"++-A"}));

INSTANTIATE_TEST_SUITE_P(
    functions, Scripts,
    testing::Values(Row{Form::other, u"(A)=>B"}, Row{Form::other, u"(A,[B,{C}],D=1)=>A"},
                    Row{Form::other, u"A=>{B;C}"}, Row{Form::other, u"F(A=>{},1)"},
                    Row{Form::refused, u"((A))=>B"}, Row{Form::refused, u"(A,(B))=>1"},
                    Row{Form::refused, u"(A,A)=>1"}, Row{Form::refused, u"([A.B])=>1"},
                    Row{Form::refused, u"(A+1)=>1"}, Row{Form::refused, u"F(A)=>1"},
                    Row{Form::refused, u"1+(A)=>1"}, Row{Form::refused, u"A=>{}+1"}));

INSTANTIATE_TEST_SUITE_P(statements, Scripts,
                         testing::Values(Row{Form::other, u";"}, Row{Form::other, u"A;;B;"},
                                         Row{Form::other, u"{}"}, Row{Form::other, u"{A,B}+C"},
                                         Row{Form::other, u"{{A}B:C;D}"},
                                         Row{Form::other, u"A:B:C"}, Row{Form::other, u"A:;A:{B}"},
                                         Row{Form::refused, u"A:"}, Row{Form::refused, u"{A:}"},
                                         Row{Form::refused, u"A:A:B"},
                                         Row{Form::refused, u"A:{A:B}"}, Row{Form::refused, u"1:A"},
                                         Row{Form::refused, u"(A:B)"}, Row{Form::refused, u"{A}=B"},
                                         Row{Form::refused, u"{A"}, Row{Form::refused, u"A}"},
                                         Row{Form::refused, u"(A;B)"},
                                         Row{Form::refused, u"F({A;B})"}));

INSTANTIATE_TEST_SUITE_P(
    declarations, Scripts,
    testing::Values(Row{Form::refused, u"let[0]"}, Row{Form::refused, u"let[0]=1"},
                    Row{Form::refused, u"{let [0]}"}, Row{Form::refused, u"A:let[B]=C"},
                    Row{Form::refused, u"A;let\n/**/[0]"}, Row{Form::expression, u"(let[0])"},
                    Row{Form::expression, u"A=let[0]"}, Row{Form::expression, u"let.A[0]"},
                    Row{Form::other, u"let:A"}));

INSTANTIATE_TEST_SUITE_P(prototypes, Scripts,
                         testing::Values(Row{Form::refused, u"({__proto__:1,__proto__:2})"},
                                         Row{Form::refused, u"({__proto__:1,A,__proto__ :2})"},
                                         Row{Form::other, u"({__proto__,A})"}));

INSTANTIATE_TEST_SUITE_P(directives, Scripts,
                         testing::Values(Row{Form::refused, u"'use strict';010"},
                                         Row{Form::refused, u"\"use strict\";let"},
                                         Row{Form::refused, u"(A=1,B)=>{'use strict'}"},
                                         Row{Form::refused, u"A=>{'use strict';010}"},
                                         Row{Form::expression, u"'use strict'"},
                                         Row{Form::expression, u"'use strict'+010"},
                                         Row{Form::other, u"'use\\x20strict';010"}));

// A declaration has no value; and that a prototype or a directive does no harm is not looked into.
TEST(Scripts, SomeThatCompileAreRefused) {
    ScriptHost host;
    for (char16_t const* const source : {u"let[A]=B", u"({__proto__:A})", u"'use strict';A"}) {
        EXPECT_EQ(formOf(source), Form::refused);
        EXPECT_TRUE(compiles(host, source)) << testing::PrintToString(std::u16string(source));
    }
}

TEST(Scripts, OctalNumbersHaveTheirValue) {
    auto const parsed = kx::parseScript(u"0017");
    ASSERT_TRUE(std::holds_alternative<kx::Expression>(parsed));
    EXPECT_EQ(std::get<kx::Expression>(parsed).root().number, 15);
}

TEST(Scripts, TooDeepOnesAreTooComplex) {
    std::u16string labels;
    for (int i = 0; i < 9'000; ++i) labels += u'A' + kx::decimalText(i) + u':';
    std::vector<std::u16string> sources{labels + u'B'};
    for (std::u16string const unit : {u"[", u"{", u"++", u"F(", u"A=>{", u"A=["}) {
        std::u16string& source = sources.emplace_back();
        for (int i = 0; i < 16'000; ++i) source += unit;
    }
    for (std::u16string const& source : sources) {
        // Length alone is no reason.
        ASSERT_LT(source.size(), 65'535U);
        auto const parsed = kx::parseScript(source);
        ASSERT_TRUE(std::holds_alternative<kx::Refusal>(parsed));
        EXPECT_EQ(std::get<kx::Refusal>(parsed).reason, kx::Refusal::Reason::tooComplex);
    }
}

TEST(Scripts, OfTokensAtRandomCompile) {
    constexpr std::array kTokens = {
        u"A", u"B",  u"A", u"1",  u"010", u"F(A)", u"this",      u"(",
        u")", u"[",  u"]", u"{",  u"}",   u",",    u",",         u"=",
        u"=", u"=>", u":", u"++", u"--",  u";",    u"+",         u".C",
        u"?", u"-",  u"A", u"B",  u"+=",  u"let",  u"__proto__", u"'use strict'"};
    ScriptHost host;
    std::mt19937_64 random(7);
    int others = 0;
    for (int i = 0; i < 200'000; ++i) {
        std::u16string source;
        for (auto count = 1 + random() % 8; count > 0; --count) {
            source += kTokens[random() % kTokens.size()];
        }
        if (formOf(source) != Form::other) continue;
        ++others;
        ASSERT_TRUE(compiles(host, source)) << testing::PrintToString(source);
        if (others % 1000 == 0) host.host.reset();
    }
    EXPECT_GT(others, 1'000);
}

}  // namespace
