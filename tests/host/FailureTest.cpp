// KxJsParser::lastFailure(): kinds, and places in the caller's source.
#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <thread>

#include <v8.h>

#include "ScriptHost.h"
#include "support/EngineWords.h"

namespace {

/// "KIND LINE:COLUMN-END" with " in call" where the exception is from elsewhere, the source line
/// and the message, one a line.
std::u16string describe(KxJsFailure const* failure) {
    if (failure == nullptr) return u"none";
    auto const decimal = [](std::int32_t number) {
        std::string const digits = std::to_string(number);
        return std::u16string(digits.begin(), digits.end());
    };
    static constexpr std::array<char16_t const*, 3> kKinds = {u"compile", u"run", u"limit"};
    return kKinds.at(static_cast<std::size_t>(failure->kind)) + (u" " + decimal(failure->line)) +
           u":" + decimal(failure->column) + u"-" + decimal(failure->endColumn) +
           (failure->isInCall ? u" in call" : u"") + u"\n" + failure->sourceLine + u"\n" +
           failure->message;
}

struct Case {
    char const* name;
    std::u16string source;
    std::u16string expected;
};
void PrintTo(Case const& row, std::ostream* out) { *out << row.name; }

/// The variables A and B are bound, so that sources that use them are compiled with a prologue.
class Failure : public testing::TestWithParam<Case> {};

TEST_P(Failure, isAsInTheTable) {
    ScriptHost host;
    host.bind(u"A", 5);
    host.bind(u"B", u"text");
    host.run(u"function outer(f) {\n\n  return f(); }");
    ASSERT_EQ(host.host.lastFailure(), nullptr);
    host.run(GetParam().source);
    EXPECT_EQ(describe(host.host.lastFailure()),
              inEnginesWords<std::u16string>(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    table, Failure,
    testing::Values(
        Case{"success", u"1 + 1", u"none"},  //
        Case{"not_a_number", u"0/0", u"none"},
        Case{"missing_name", u"1 + missing",
             u"run 1:5-12\n1 + missing\nReferenceError: missing is not defined"},
        Case{"syntax", u"1 + * 2", u"compile 1:5-6\n1 + * 2\nSyntaxError: Unexpected token '*'"},
        Case{"unfinished", u"1 +", u"compile 1:4-4\n1 +\nSyntaxError: Unexpected end of input"},
        Case{"wide", u"1 + abc def",
             u"compile 1:9-12\n1 + abc def\nSyntaxError: Unexpected identifier 'def'"},
        Case{"blank_behind_a_functions_name", u"IIF\u00A0('missing')",
             u"run 1:1-4 in call\nIIF\u00A0('missing')\nReferenceError: missing is not defined"},
        Case{"empty_line_before", u"\nnope",
             u"run 2:1-5\nnope\nReferenceError: nope is not defined"},
        Case{"carriage_returns", u"1;\r\n2;\rnope",
             u"run 3:1-5\nnope\nReferenceError: nope is not defined"},
        Case{"line_separator", u"1;\u2028nope",
             u"run 2:1-5\nnope\nReferenceError: nope is not defined"},
        Case{"one_variable", u"A + nope",
             u"run 1:5-9\nA + nope\nReferenceError: nope is not defined"},
        Case{"two_variables_second_line", u"A;\nB + nope",
             u"run 2:5-9\nB + nope\nReferenceError: nope is not defined"},
        Case{"syntax_behind_variables", u"A + B +* 1",
             u"compile 1:8-9\nA + B +* 1\nSyntaxError: Unexpected token '*'"},
        Case{"beyond_ascii", u"'\u00e9\U0001F600' + nope",
             u"run 1:9-13\n'\u00e9\U0001F600' + nope\nReferenceError: nope is not defined"},
        Case{"unfinished_text_of_two_lines", u"A;\n'unfinished",
             u"compile 2:1-12\n'unfinished\nSyntaxError: Invalid or unexpected token"},
        Case{"unfinished_template", u"`a\nb",
             u"compile 2:2-2\nb\nSyntaxError: Unexpected end of input"},
        Case{"name_before_a_blank_beyond_ascii", u"nope\u00A0+ 1",
             u"run 1:1-5\nnope\u00A0+ 1\nReferenceError: nope is not defined"},
        Case{"sign", u"A + (5)(1)", u"run 1:8-9\nA + (5)(1)\nTypeError: 5 is not a function"},
        Case{"thrown_text", u"A; throw 'just text'", u"run 1:4-9\nA; throw 'just text'\njust text"},
        Case{"built_in_function", u"1 + ROUND()",
             u"run 1:5-10 in call\n1 + ROUND()\nReferenceError: ROUND missing argument"},
        Case{"built_in_function_behind_variables", u"A;\n B + ROUND()",
             u"run 2:6-11 in call\n B + ROUND()\nReferenceError: ROUND missing argument"},
        Case{"evaluated_text", u"A + eval('1;\\n  nope')",
             u"run 1:5-9 in call\nA + eval('1;\\n  nope')\nReferenceError: nope is not defined"},
        Case{"evaluated_syntax", u"eval('1+')",
             u"run 1:1-5 in call\neval('1+')\nSyntaxError: Unexpected end of input"},
        Case{"other_script", u"A; outer(() => 1); outer(1)",
             u"run 1:20-25 in call\nA; outer(() => 1); outer(1)\nTypeError: f is not a function"},
        Case{"callback_from_other_script", u"A;\nouter(() => nope)",
             u"run 2:13-17\nouter(() => nope)\nReferenceError: nope is not defined"},
        Case{"engine_function", u"A; 'x'.repeat(-1)",
             u"run 1:8-14\nA; 'x'.repeat(-1)\nRangeError: Invalid count value: -1"},
        Case{"text_of_result", u"({toString() {\n return nope }})",
             u"run 2:2-8\n return nope }})\nReferenceError: nope is not defined"}),
    [](auto const& info) { return std::string(info.param.name); });

TEST(LastFailure, leavesTheErrorTextWithThePrologueInIt) {
    ScriptHost host;
    host.bind(u"A", 5);
    EXPECT_EQ(host.run(u"A + nope").error,
              u"Error in line: 2\r\nReferenceError: nope is not defined\r\nA + nope\r\n    ^\r\n");
    EXPECT_EQ(host.host.lastFailure()->line, 1);
}

TEST(LastFailure, usesThePrologueThatTheScriptWasParsedWith) {
    ScriptHost host;
    std::int32_t const without = host.parse(u"A + nope");
    host.bind(u"A", 5);
    std::int32_t const with = host.parse(u"A + nope");
    host.bind(u"nop", 5);
    for (std::int32_t const script : {with, without}) {
        host.execute(script);
        EXPECT_EQ(describe(host.host.lastFailure()),
                  u"run 1:5-9\nA + nope\nReferenceError: nope is not defined");
    }
}

TEST(LastFailure, hasNoPlaceInThePrologue) {
    ScriptHost host;
    host.bind(u"1x", 5);
    host.run(u"'1x'");
    EXPECT_EQ(describe(host.host.lastFailure()),
              u"compile 0:0-0\n\nSyntaxError: Invalid or unexpected token");
}

TEST(LastFailure, lastsUntilTheNextSuccess) {
    ScriptHost host;
    std::int32_t const good = host.parse(u"1");
    std::u16string error;
    host.host.parse(u"1 +", error);
    EXPECT_NE(host.host.lastFailure(), nullptr);
    host.execute(good);
    EXPECT_EQ(host.host.lastFailure(), nullptr);
    host.run(u"nope");
    EXPECT_NE(host.host.lastFailure(), nullptr);
    host.parse(u"1");
    EXPECT_EQ(host.host.lastFailure(), nullptr);
    host.run(u"nope");
    host.host.reset();
    EXPECT_EQ(host.host.lastFailure(), nullptr);
}

TEST(LastFailure, isForgottenAtAReset) {
    KxJsParser host;
    std::u16string error;
    host.evaluate(u"1+", error);
    ASSERT_NE(host.lastFailure(), nullptr);
    host.reset();
    EXPECT_EQ(host.lastFailure(), nullptr);
}

TEST(LastFailure, namesTheLimit) {
    ScriptHost host;
    host.host.setTimeLimit(std::chrono::milliseconds(50));
    std::u16string const error = host.run(u"for (;;);").error;
    EXPECT_EQ(describe(host.host.lastFailure()), u"limit 0:0-0\n\n" + error);
}

TEST(LastFailure, tellsTheCalls) {
    ScriptHost host;
    host.bind(u"A", 5);
    host.run(
        u"function inner() { return ROUND(); }\nfunction second() {\n return inner(A); "
        u"}\nsecond()");
    KxJsFailure const* const failure = host.host.lastFailure();
    ASSERT_NE(failure, nullptr);
    ASSERT_EQ(failure->frames.size(), 4U);
    EXPECT_EQ(failure->frames[0].function, u"ROUND");
    EXPECT_FALSE(failure->frames[0].isInSource);
    struct Call {
        std::u16string function;
        std::int32_t line;
        std::int32_t column;
    };
    std::array<Call, 3> const calls{{{u"inner", 1, 27}, {u"second", 3, 9}, {u"", 4, 1}}};
    for (std::size_t i = 0; i < calls.size(); ++i) {
        KxJsFailure::Frame const& frame = failure->frames[i + 1];
        EXPECT_EQ(frame.function, calls.at(i).function);
        EXPECT_EQ(frame.line, calls.at(i).line);
        EXPECT_EQ(frame.column, calls.at(i).column);
        EXPECT_TRUE(frame.isInSource);
    }
}

TEST(LastFailure, survivesEndlessRecursion) {
    ScriptHost host;
    host.run(u"function f() { return f(); }\nf()");
    KxJsFailure const* const failure = host.host.lastFailure();
    ASSERT_NE(failure, nullptr);
    EXPECT_EQ(failure->line, 1);
    EXPECT_EQ(failure->frames.size(), 32U);
}

TEST(LastFailure, isLeftAloneByAnotherThread) {
    ScriptHost host;
    host.run(u"nope");
    KxJsFailure const* const failure = host.host.lastFailure();
    std::thread([&] {
        std::u16string error;
        host.host.parse(u"1", error);
        host.host.execute(0, error);
    }).join();
    EXPECT_EQ(host.host.lastFailure(), failure);
}

}  // namespace
