// kxjs eval: results, variables, errors and exit statuses.

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

#include "Program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct Case {
    char const* name;
    std::vector<std::string> arguments;
    std::string out;
};
void PrintTo(Case const& row, std::ostream* out) { *out << row.name; }

class Evaluation : public testing::TestWithParam<Case> {};

TEST_P(Evaluation, PrintsTheResult) {
    std::vector<std::string> arguments = GetParam().arguments;
    arguments.insert(arguments.begin(), "eval");
    Outcome const outcome = kxjs(arguments);
    EXPECT_EQ(outcome.out, GetParam().out);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Eval, Evaluation,
    testing::Values(
        Case{"formula_is_converted", {"IIF(1<>2 .AND. 3>2,'OK','KO')"}, "OK\n"},
        Case{"javascript_is_not_converted", {"--js", "'a<>b'.length"}, "4\n"},
        Case{"option_after_formula", {"'<>'.length", "--js"}, "2\n"},
        Case{"several_in_order", {"1+1", "'a'", "2*3"}, "2\na\n6\n"},
        Case{"one_context_for_all", {"--js", "seen = 3", "seen + 1"}, "3\n4\n"},
        Case{"empty_result_is_a_line", {"''"}, "\n"},
        Case{"leading_minus_and_digit", {"-1+3"}, "2\n"},
        Case{"leading_minus_after_dashes", {"-v", "A=4", "--", "-A"}, "-4\n"},
        Case{"formulas_around_dashes", {"'a'", "--", "-1", "- 2", "'--'"}, "a\n-1\n-2\n--\n"},
        Case{"brackets_are_not_split", {"--js", "[1,2]"}, "1,2\n"},
        Case{"brackets_of_an_index", {"--js", "[1,2][1]+[3][0]"}, "5\n"},
        Case{"increment", {"--js", "x = 1", "++x"}, "1\n2\n"},
        Case{"control_characters",
             {"--js", "'\x01'.length", "[1].length+'\x01\x01'.length"},
             "1\n3\n"},
        Case{"name_of_a_command", {"--js", "eval = 5", "eval"}, "5\n5\n"},
        Case{"utf8_in_and_out", {"'Grüße → 😀'"}, "Grüße → 😀\n"},
        Case{"utf16_inside", {"--js", "'😀'.length"}, "2\n"},
        Case{"lone_high_surrogate", {"--js", "'<\\ud83d>'"}, "<\uFFFD>\n"},
        Case{"lone_low_surrogate", {"--js", "'<\\ude00>'"}, "<\uFFFD>\n"},
        Case{"surrogates_in_wrong_order", {"--js", "'\\ude00\\ud83d'"}, "\uFFFD\uFFFD\n"}),
    [](auto const& info) { return std::string(info.param.name); });

/// Each row binds A to a value and evaluates a formula that shows its type.
class Variables : public Evaluation {};

TEST_P(Variables, AreSeenByTheScript) {
    std::vector<std::string> arguments = {"eval", "--js"};
    arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
    arguments.emplace_back("typeof A + ' ' + A + ' ' + (A === Math.round(A))");
    Outcome const outcome = kxjs(arguments);
    EXPECT_EQ(outcome.out, GetParam().out + "\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Eval, Variables,
    testing::Values(Case{"whole", {"-v", "A=5"}, "number 5 true"},
                    Case{"whole_attached", {"-vA=5"}, "number 5 true"},
                    Case{"whole_negative", {"-v", "A=-5"}, "number -5 true"},
                    Case{"whole_with_plus", {"-v", "A=+5"}, "number 5 true"},
                    Case{"whole_largest", {"-v", "A=2147483647"}, "number 2147483647 true"},
                    Case{"whole_smallest", {"-v", "A=-2147483648"}, "number -2147483648 true"},
                    Case{"beyond_32_bits", {"-v", "A=2147483648"}, "number 2147483648 true"},
                    Case{"double", {"-v", "A=1.5"}, "number 1.5 false"},
                    Case{"double_without_whole_part", {"-v", "A=.5"}, "number 0.5 false"},
                    Case{"double_with_exponent", {"-v", "A=1e3"}, "number 1000 true"},
                    Case{"true", {"-v", "A=true"}, "boolean true false"},
                    Case{"false", {"-v", "A=false"}, "boolean false false"},
                    Case{"text", {"-v", "A=hello"}, "string hello false"},
                    Case{"text_empty", {"-v", "A="}, "string  false"},
                    Case{"text_with_equals_sign", {"-v", "A=b=c"}, "string b=c false"},
                    Case{"text_other_case_of_true", {"-v", "A=TRUE"}, "string TRUE false"},
                    Case{"text_infinity", {"-v", "A=inf"}, "string inf false"},
                    Case{"text_not_a_number", {"-v", "A=nano"}, "string nano false"},
                    Case{"text_beyond_doubles", {"-v", "A=1e999"}, "string 1e999 false"},
                    Case{"text_two_signs", {"-v", "A=+-5"}, "string +-5 false"},
                    Case{"text_hexadecimal", {"-v", "A=0x10"}, "string 0x10 false"},
                    Case{"text_number_and_blank", {"-v", "A=5 "}, "string 5  false"},
                    Case{"text_beyond_ascii", {"-v", "A=é😀"}, "string é😀 false"},
                    Case{"long", {"--long", "A=5"}, "number 5 true"},
                    Case{"double_of_whole", {"--double", "A=5"}, "number 5 true"},
                    Case{"string_of_digits", {"--string", "A=01234"}, "string 01234 false"},
                    Case{"bool", {"--bool", "A=true"}, "boolean true false"},
                    Case{"option_with_equals_sign", {"--string=A=5"}, "string 5 false"},
                    Case{"last_holds", {"-v", "A=1", "--string", "A=2"}, "string 2 false"},
                    Case{"last_holds_reversed", {"--string", "A=2", "-v", "A=1"}, "number 1 true"}),
    [](auto const& info) { return std::string(info.param.name); });

TEST(Eval, BindsSeveralVariables) {
    Outcome const outcome = kxjs(
        {"eval", "-v", "A=1", "-v", "B=2.5", "--string", "C=x", "--bool", "D=true", "A+B+C+D"});
    EXPECT_EQ(outcome.out, "3.5xtrue\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Eval, NamesBeyondAsciiAreBound) {
    EXPECT_EQ(kxjs({"eval", "--js", "-v", "größe=3", "größe*2"}).out, "6\n");
}

TEST(Eval, ReadsFormulasFromStandardInput) {
    Outcome const outcome = kxjs({"eval", "-v", "A=5"}, "A+1\r\nA+2\nA+3");
    EXPECT_EQ(outcome.out, "6\n7\n8\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Eval, PutsStandardInputInThePlaceOfADash) {
    EXPECT_EQ(kxjs({"eval", "'a'", "-", "'c'"}, "'b'\n").out, "a\nb\nc\n");
}

TEST(Eval, DropsAByteOrderMark) { EXPECT_EQ(kxjs({"eval", "--js"}, "\uFEFF'a'").out, "a\n"); }

TEST(Eval, PrintsTheComposedTextOfAnError) {
    Outcome const outcome = kxjs({"eval", "--js", "1 + missing"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "Error in line: 1\n"
              "ReferenceError: missing is not defined\n"
              "1 + missing\n"
              "    ^^^^^^^\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Eval, PrintsASyntaxError) {
    Outcome const outcome = kxjs({"eval", "--js", "1 +* 2"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, StartsWith("Error in line: 1\nSyntaxError: "));
    EXPECT_THAT(outcome.err, Not(HasSubstr("\r")));
    EXPECT_EQ(outcome.status, 1);
}

TEST(Eval, PrintsBothResultAndErrorOfNotANumber) {
    Outcome const outcome = kxjs({"eval", "--js", "0/0"});
    EXPECT_EQ(outcome.out, "NaN\n");
    EXPECT_EQ(outcome.err, "Not A Number\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Eval, GoesOnAfterAFailureAndSaysWhichFormulaFailed) {
    Outcome const outcome = kxjs({"eval", "--js", "1", "missing", "3"});
    EXPECT_EQ(outcome.out, "1\n3\n");
    EXPECT_THAT(outcome.err, StartsWith("kxjs: formula 2:\nError in line: 1\n"));
    EXPECT_EQ(outcome.status, 1);
}

TEST(Eval, SaysWhichLineFailed) {
    Outcome const outcome = kxjs({"eval", "--js"}, "1\nmissing\n");
    EXPECT_EQ(outcome.out, "1\n");
    EXPECT_THAT(outcome.err, StartsWith("kxjs: standard input, line 2:\nError in line: 1\n"));
    EXPECT_EQ(outcome.status, 1);
}

/// Wrong usage: the message names the error, and no formula runs.
struct Refusal {
    char const* name;
    std::vector<std::string> arguments;
    std::string message;
};
void PrintTo(Refusal const& row, std::ostream* out) { *out << row.name; }

class EvalRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(EvalRefusal, EndsWithStatusTwo) {
    std::vector<std::string> arguments = GetParam().arguments;
    arguments.insert(arguments.begin(), {"eval", "--js"});
    arguments.insert(arguments.end(), {"--", "'ran'"});
    Outcome const outcome = kxjs(arguments);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr(GetParam().message));
    EXPECT_EQ(outcome.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Eval, EvalRefusal,
    testing::Values(
        Refusal{"no_equals_sign", {"-v", "A"}, "variable \"A\": expected NAME=VALUE"},
        Refusal{"no_name", {"-v", "=5"}, "there is no name before"},
        Refusal{"long_too_large", {"--long", "A=2147483648"}, "not a whole number of 32 bits"},
        Refusal{"long_with_fraction", {"--long", "A=1.5"}, "not a whole number"},
        Refusal{"long_empty", {"--long", "A="}, "not a whole number"},
        Refusal{"double_text", {"--double", "A=x"}, "not a decimal number"},
        Refusal{"double_infinity", {"--double", "A=inf"}, "not a decimal number"},
        Refusal{"double_too_large", {"--double", "A=1e999"}, "range of a double"},
        Refusal{"bool_number", {"--bool", "A=1"}, "neither \"true\" nor \"false\""},
        Refusal{"reserved_name", {"-v", "ouraccessor=1"}, "the name \"ouraccessor\""},
        Refusal{"blank_name", {"-v", "  =1"}, "the name \"  \""},
        Refusal{"name_not_utf8", {"-v", "\xFF=1"}, "name of a variable: invalid UTF-8 at byte 1"},
        Refusal{"value_not_utf8", {"-v", "A=x\xFF"}, "variable A: invalid UTF-8 at byte 2"},
        Refusal{"formula_not_utf8", {"'a'", "'b\xC3'"}, "formula 2: invalid UTF-8 at byte 3"}),
    [](auto const& info) { return std::string(info.param.name); });

TEST(Eval, StopsAtInvalidUtf8OnStandardInput) {
    Outcome const outcome = kxjs({"eval", "--js"}, "1\n'\xED\xA0\x80'\n3\n");
    EXPECT_EQ(outcome.out, "1\n");
    EXPECT_EQ(outcome.err, "kxjs: standard input, line 2: invalid UTF-8 at byte 2\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST(Eval, StopsAtAZeroByteOnStandardInput) {
    Outcome const outcome = kxjs({"eval", "--js"}, std::string("'a\0b'\n", 6));
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "kxjs: standard input, line 1: zero byte at byte 3\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST(Eval, DoesNotWaitForATerminal) {
    if (!hasTerminals()) GTEST_SKIP() << "no terminals here";
    Outcome const outcome = runOnTerminal({"eval"}, 80);
    EXPECT_THAT(outcome.err, HasSubstr("no formula given"));
    EXPECT_EQ(outcome.status, 2);
}

TEST(Eval, ReportsAFullDisk) {
    Outcome const outcome = run(
        {.arguments = {"eval", "1"}, .input = {}, .environment = {}, .outputFile = "/dev/full"});
    EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write to standard output: "));
    EXPECT_EQ(outcome.status, 1);
}

TEST(Eval, EndsQuietlyWhereNobodyReads) {
    Outcome const outcome = runWithClosedPipe({"eval", "1"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 128 + SIGPIPE);
}

TEST(Eval, GoesOnAfterAFormulaThatFillsTheMemory) {
    Outcome const outcome =
        kxjs({"eval", "--js", "for (var a = [];;) a.push(new Array(1e6).fill(1))", "a = 0; 1 + 1"});
    EXPECT_EQ(outcome.out, "2\n");
    EXPECT_THAT(outcome.err, AllOf(StartsWith("kxjs: formula 1:\n"), HasSubstr("memory limit")));
    EXPECT_EQ(outcome.status, 1);
}

}  // namespace
