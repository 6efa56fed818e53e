// kxjs repl with lines that do not come from a terminal.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "Program.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Case {
    char const* name;
    std::string input;
    std::string out;
    std::string err;
};
void PrintTo(Case const& row, std::ostream* out) { *out << row.name; }

class ReplLines : public testing::TestWithParam<Case> {};

TEST_P(ReplLines, AreAnswered) {
    Outcome const outcome = kxjs({"repl"}, GetParam().input);
    EXPECT_EQ(outcome.out, GetParam().out);
    EXPECT_EQ(outcome.err, GetParam().err);
    EXPECT_EQ(outcome.status, GetParam().err.empty() ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    Repl, ReplLines,
    testing::Values(
        Case{"nothing", "", "", ""},  //
        Case{"blank_lines", "\n  \n\t\n", "", ""},
        Case{"formula", "IIF(1<>2,'OK','KO')\n", "OK\n", ""},
        Case{"last_line_without_end", "1\n2", "1\n2\n", ""},
        Case{"beyond_ascii", "'Gr\u00fc\u00dfe \U0001F600'\n", "Gr\u00fc\u00dfe \U0001F600\n", ""},
        Case{"long_value", "A = 5\nA*2\n", "A = 5 (long)\n10\n", ""},
        Case{"double_value", "A=1.5\nA*2\n", "A = 1.5 (double)\n3\n", ""},
        Case{"boolean_value", "A = true\nA\n", "A = true (boolean)\ntrue\n", ""},
        Case{"text_value", "A = '007'\nA+1\n", "A = '007' (string)\n0071\n", ""},
        Case{"text_value_in_double_quotes", "A = \"it's\"\nA\n", "A = 'it's' (string)\nit's\n", ""},
        Case{"text_that_is_a_formula", "A = 'a' + 'b'\nA\n", "A = 'ab' (string)\nab\n", ""},
        Case{"formula_value", "A = 5\nB = A+1\nA = 1\nB\n",
             "A = 5 (long)\nB = 6 (long)\nA = 1 (long)\n6\n", ""},
        Case{"converted_formula_value", "A = 1<>2\nA\n", "A = true (boolean)\ntrue\n", ""},
        Case{"name_beyond_ascii", "gr\u00f6\u00dfe = 3\ngr\u00f6\u00dfe*2\n",
             "gr\u00f6\u00dfe = 3 (long)\n6\n", ""},
        Case{"blanks_beyond_ascii", "A\u00A0= \u20035\u3000\nA*2\n", "A = 5 (long)\n10\n", ""},
        Case{"sign_beyond_ascii", "A\u00D7 = 5\n", "",
             "Error in line: 1\nSyntaxError: Invalid or unexpected token\nA\u00D7 = 5\n ^\n"},
        Case{"comparison_is_a_formula", "A = 5\nA == 5\n", "A = 5 (long)\ntrue\n", ""},
        Case{"variables", "B = 2\nA = 'x'\n:vars\n:reset\n:vars\n",
             "B = 2 (long)\nA = 'x' (string)\nA = 'x' (string)\nB = 2 (long)\n", ""},
        Case{"javascript_of_one", ":js A<>2 .AND. B\n", "A!=2 && B\n", ""},
        Case{"javascript_of_all", ":js\n1<>2\n:js\n1<>2\n",
             "The JavaScript of formulas is shown.\nJavaScript: 1!=2\ntrue\n"
             "The JavaScript of formulas is no longer shown.\ntrue\n",
             ""},
        Case{"quit", "1\n:quit\n2\n", "1\n", ""},
        Case{"failed_formula", "1\n1+PRICE\n2\n", "1\n2\n",
             "Error in line: 1\nReferenceError: PRICE is not defined\n1+PRICE\n  ^^^^^\n"},
        Case{"failed_value", "A = 1+PRICE\nA\n", "",
             "Error in line: 1\nReferenceError: PRICE is not defined\n1+PRICE\n  ^^^^^\n"
             "Error in line: 1\nReferenceError: A is not defined\nA\n^\n"},
        Case{"value_that_is_no_number", "A = 0/0\n:vars\n", "", "Not A Number\n"},
        Case{"result_and_error", "0/0\n", "NaN\n", "Not A Number\n"},
        Case{"name_of_a_function", "ROUND = 5\nROUND(1.26,1)\n", "1.3\n",
             "kxjs: ROUND is a built-in function\n"},
        Case{"word_of_the_language", "typeof = 5\ntypeof 1\n", "number\n",
             "kxjs: a variable cannot have the name \"typeof\"\n"},
        Case{"reserved_name", "ouraccessor = 5\n", "",
             "kxjs: a variable cannot have the name \"ouraccessor\"\n"},
        Case{"unknown_command", ":foo\n1\n", "1\n",
             "kxjs: there is no command \":foo\"; \":help\" lists them all\n"},
        Case{"command_with_too_much", ":quit now\n1\n", "1\n",
             "kxjs: :quit takes nothing behind it\n"}),
    [](auto const& info) { return std::string(info.param.name); });

TEST(Repl, ExplainsAFunction) {
    Outcome const outcome = kxjs({"repl"}, ":help round\n");
    EXPECT_EQ(outcome.out, kxjs({"functions", "ROUND"}).out);
    EXPECT_EQ(outcome.status, 0);
}

TEST(Repl, NamesFunctionsNearAnUnknownOne) {
    Outcome const outcome = kxjs({"repl"}, ":help ROUNDD\n1\n");
    EXPECT_EQ(outcome.out, "1\n");
    EXPECT_THAT(outcome.err, HasSubstr("near it are: ROUND"));
    EXPECT_EQ(outcome.status, 1);
}

TEST(Repl, ListsItsCommands) {
    EXPECT_THAT(kxjs({"repl"}, ":help\n").out, HasSubstr("NAME = VALUE"));
}

TEST(Repl, ShowsTimes) {
    Outcome const outcome = kxjs({"repl"}, ":time\n1\n");
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\n1\n\\([0-9]+\\.[0-9]{3} ms\\)\n"));
}

TEST(Repl, ShowsTheTimeOfOneFormula) {
    Outcome const outcome = kxjs({"repl"}, ":time 1+1\n3\n:time A = 2*2\nA\n:time nope\n5\n");
    EXPECT_THAT(outcome.out, testing::MatchesRegex("2\n\\([0-9.]+ ms\\)\n3\n"
                                                   "\\([0-9.]+ ms\\)\nA = 4 \\(long\\)\n4\n"
                                                   "\\([0-9.]+ ms\\)\n5\n"));
    EXPECT_THAT(outcome.err, HasSubstr("nope is not defined"));
}

TEST(Repl, ReportsAFullDisk) {
    Outcome const outcome =
        run({.arguments = {"repl"}, .input = "1\n", .environment = {}, .outputFile = "/dev/full"});
    EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write to standard output: "));
    EXPECT_EQ(outcome.status, 1);
}

}  // namespace
