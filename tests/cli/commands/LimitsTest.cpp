// --timeout and --memory of the commands that run formulas.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

#include "Program.h"

namespace {

using testing::HasSubstr;

struct Case {
    char const* name;
    std::vector<std::string> arguments;
    std::string input;
    std::string out;
    std::string err;
};
void PrintTo(Case const& row, std::ostream* out) { *out << row.name; }

class LimitsEnd : public testing::TestWithParam<Case> {};

TEST_P(LimitsEnd, whatGoesBeyondThem) {
    Outcome const outcome = kxjs(GetParam().arguments, GetParam().input);
    EXPECT_EQ(outcome.out, GetParam().out);
    EXPECT_EQ(outcome.err, GetParam().err);
    EXPECT_EQ(outcome.status, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Limits, LimitsEnd,
    testing::Values(
        Case{"formula_that_runs_too_long",
             {"eval", "--js", "--timeout", "50", "for (;;);", "1 + 1"},
             "",
             "2\n",
             "kxjs: formula 1:\n"
             "The script was ended: it ran longer than its time limit of 50 ms\n"},
        Case{"formula_that_needs_too_much",
             {"eval", "--js", "--memory=32", "for (var a = [];;) a.push([1])", "a = 0; 1 + 1"},
             "",
             "2\n",
             "kxjs: formula 1:\n"
             "The script was ended: it needed more than the memory limit of 32 MiB\n"},
        Case{"extraction_that_never_ends",
             {"extract", "--js", "--timeout", "200", "A; eval('made' + 'Up')", "B"},
             "",
             "A\nmadeUp\nB\n",
             "kxjs: formula 1:\n"
             "The script was ended: it ran longer than its time limit of 200 ms\n"},
        Case{"extraction_that_needs_too_much",
             {"extract", "--js", "--memory", "32", "A; for (var a = [];;) a.push([1])"},
             "",
             "A\n",
             "The script was ended: it needed more than the memory limit of 32 MiB\n"},
        Case{"batch_that_runs_too_long",
             {"batch", "--js", "--timeout", "50", "if (A == 2) for (;;); A"},
             "A\n1\n2\n3\n",
             "A,RESULT\n",
             "kxjs: line 3: The formula was ended: all records together took longer than the time "
             "limit of 50 ms\n"},
        Case{
            "batch_that_needs_too_much",
            {"batch", "--js", "--memory", "32", "if (A == 2) for (var a = [];;) a.push([1]); A"},
            "A\n1\n2\n3\n",
            "A,RESULT\n",
            "kxjs: line 3: The script was ended: it needed more than the memory limit of 32 MiB\n"},
        Case{"formulas_at_the_prompt_that_run_too_long",
             {"repl", "--timeout", "50"},
             "for (;;);\n1 + 1\n:reset\nfor (;;) ;\n",
             "2\n",
             "The script was ended: it ran longer than its time limit of 50 ms\n"
             "The script was ended: it ran longer than its time limit of 50 ms\n"},
        Case{"formula_at_the_prompt_that_needs_too_much",
             {"repl", "--memory", "32"},
             "for (var a = [];;) a.push([1])\n1 + 1\n",
             "2\n",
             "The script was ended: it needed more than the memory limit of 32 MiB\n"}),
    [](auto const& info) { return std::string(info.param.name); });

TEST(Limits, HoldForAllRecordsOfABatchTogether) {
    // Several blocks, each of which stays far below the limit.
    std::string input = "A,B\n";
    for (int i = 0; i < 100; ++i) input += "1," + std::string(100'000, 'x') + "\n";
    Outcome const outcome = kxjs({"batch", "--js", "--timeout", "2000",
                                  "var end = Date.now() + 40; while (Date.now() < end); A"},
                                 input);
    EXPECT_THAT(outcome.err, HasSubstr("all records together took longer than the time limit of "
                                       "2000 ms\n"));
    EXPECT_EQ(outcome.status, 1);
}

TEST(Limits, AreCheckedBeforeThePromptBegins) {
    for (char const* option : {"--timeout", "--memory"}) {
        Outcome const outcome = kxjs({"repl", option, "0"}, "1 + 1\n");
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr("expected a whole number of "));
        EXPECT_EQ(outcome.status, 2);
    }
}

TEST(Limits, LeaveAFormulaWithinThemAlone) {
    EXPECT_EQ(kxjs({"eval", "--timeout", "2147483647", "--memory", "4096", "1+1"}).out, "2\n");
}

TEST(Limits, AreInTheHelpOfTheCommandsThatHaveThem) {
    for (char const* command : {"eval", "extract", "batch", "repl"}) {
        Outcome const outcome = kxjs({command, "--help"});
        EXPECT_THAT(outcome.out, HasSubstr("--timeout MS"));
        EXPECT_THAT(outcome.out, HasSubstr("--memory MIB"));
    }
}

class WrongLimit : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(WrongLimit, EndsWithStatusTwo) {
    for (char const* command : {"eval", "extract", "batch"}) {
        std::vector<std::string> arguments = GetParam();
        arguments.insert(arguments.begin(), command);
        arguments.insert(arguments.end(), {"--js", "A"});
        Outcome const outcome = kxjs(arguments, "A\n");
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr("expected a whole number of "));
        EXPECT_EQ(outcome.status, 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Limits, WrongLimit,
                         testing::ValuesIn(std::vector<std::vector<std::string>>{
                             {"--timeout", "0"},
                             {"--timeout", "-1"},
                             {"--timeout", "1.5"},
                             {"--timeout", "50ms"},
                             {"--timeout", "2147483648"},
                             {"--timeout="},
                             {"--timeout", "[50]"},
                             {"--memory", "0"},
                             {"--memory", "1G"},
                             {"--memory", "4097"},
                             {"--memory", "99999999999999999999"},
                             {"--memory", ""}}));

TEST(Limits, AreNotForCommandsThatRunNothing) {
    Outcome const outcome = kxjs({"convert", "--timeout", "50", "A"});
    EXPECT_THAT(outcome.err, HasSubstr("--timeout"));
    EXPECT_EQ(outcome.status, 2);
}

}  // namespace
