// What the parser accepts is JavaScript, and means the same. Compared with V8, in formulas
// made of tokens at random: most of those are damaged, which is the point.
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>

#include "Dump.h"
#include "expression/Parser.h"
#include "host/ScriptHost.h"

namespace {

using namespace std::string_view_literals;

constexpr std::array kOperands = {
    u"A"sv,      u"B"sv,         u"C"sv,     u"1"sv,      u".5"sv,    u"2."sv, u"0x1f"sv,
    u"1e2"sv,    u"'x'"sv,       u"\"1\""sv, u"true"sv,   u"null"sv,  u"F"sv,  u"A.length"sv,
    u"(A)"sv,    u"(A,B)"sv,     u"F(A)"sv,  u"F(1,B)"sv, u"(A+1)"sv, u"-1"sv, u"!A"sv,
    u"\u00B5"sv, u"'\\u0041'"sv, u"C.D"sv,   u"C[0]"sv,
};
constexpr std::array kBetween = {
    u"+"sv,      u"-"sv,      u"*"sv,    u"/"sv,     u"%"sv,        u"**"sv,   u"<"sv,
    u">"sv,      u"<="sv,     u">="sv,   u"=="sv,    u"!="sv,       u"==="sv,  u"!=="sv,
    u"&&"sv,     u"||"sv,     u"\?\?"sv, u"&"sv,     u"|"sv,        u"^"sv,    u"<<"sv,
    u">>"sv,     u">>>"sv,    u","sv,    u"?"sv,     u":"sv,        u"?A:"sv,  u"=>"sv,
    u"="sv,      u"+="sv,     u" "sv,    u"\n"sv,    u"."sv,        u"("sv,    u")"sv,
    u"["sv,      u"]"sv,      u";"sv,    u"//"sv,    u"/**/"sv,     u"++"sv,   u"--"sv,
    u"!"sv,      u"?."sv,     u"`"sv,    u" in "sv,  u" typeof "sv, u"\\"sv,   u"<!--"sv,
    u"\u2028"sv, u"/*\n*/"sv, u"..."sv,  u" let "sv, u" async "sv,  u" of "sv,
};

template <class List>
std::u16string_view pick(std::mt19937_64& random, List const& list, std::size_t count) {
    return list[random() % count];
}

std::u16string soup(std::mt19937_64& random) {
    std::u16string text;
    // Mostly the plain operators, which stand first.
    for (auto count = random() % 6; count > 0; --count) {
        if (random() % 12 != 0) text += pick(random, kOperands, kOperands.size());
        bool const isPlain = random() % 4 != 0;
        text += pick(random, kBetween, isPlain ? 30 : kBetween.size());
    }
    if (random() % 12 != 0) text += pick(random, kOperands, kOperands.size());
    return text;
}

/// The text of the value of `source`, or of what it throws.
std::u16string valueOf(ScriptHost& host, std::u16string const& source) {
    host.eval(u"A=2;B='3x';C=[4];\u00B5=5;D=undefined;F=function(p,q){return [p,q]};0");
    auto const run = host.run(source);
    if (run.error.empty() || !run.result.empty()) return run.result;
    return host.host.lastFailure()->message;
}

TEST(Comparison, withTheEngine) {
    ScriptHost host;
    std::mt19937_64 random(20);
    int accepted = 0;
    for (int i = 0; i < 60'000; ++i) {
        std::u16string const source = soup(random);
        auto const parsed = kx::parseExpression(source);
        auto const* expression = std::get_if<kx::Expression>(&parsed);
        if (expression == nullptr) continue;
        ++accepted;
        std::u16string error;
        ASSERT_NE(host.host.parse(source, error), -1) << testing::PrintToString(source);
        ASSERT_EQ(valueOf(host, source), valueOf(host, asJavaScript(*expression)))
            << testing::PrintToString(source);
        if (accepted % 1000 == 0) host.host.reset();
    }
    EXPECT_GT(accepted, 10'000);
}

}  // namespace
