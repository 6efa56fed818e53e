// --timeout and --memory: what a formula may use, for the commands that run formulas.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

#include "Program.h"

namespace {

using testing::HasSubstr;

TEST(Limits, EndAFormulaThatRunsTooLong) {
    Outcome const outcome = kxjs({"eval", "--js", "--timeout", "50", "for (;;);", "1 + 1"});
    EXPECT_EQ(outcome.out, "2\n");
    EXPECT_EQ(outcome.err,
              "kxjs: formula 1:\n"
              "The script was ended: it ran longer than its time limit of 50 ms\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Limits, EndAFormulaThatNeedsTooMuch) {
    Outcome const outcome =
        kxjs({"eval", "--js", "--memory=32", "for (var a = [];;) a.push([1])", "a = 0; 1 + 1"});
    EXPECT_EQ(outcome.out, "2\n");
    EXPECT_EQ(outcome.err,
              "kxjs: formula 1:\n"
              "The script was ended: it needed more than the memory limit of 32 MiB\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Limits, EndAnExtractionThatNeverEnds) {
    Outcome const outcome =
        kxjs({"extract", "--js", "--timeout", "200", "A; eval('made' + 'Up')", "B"});
    EXPECT_EQ(outcome.out, "A\nmadeUp\nB\n");
    EXPECT_EQ(outcome.err,
              "kxjs: formula 1:\n"
              "The script was ended: it ran longer than its time limit of 200 ms\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Limits, EndAnExtractionThatNeedsTooMuch) {
    Outcome const outcome =
        kxjs({"extract", "--js", "--memory", "32", "A; for (var a = [];;) a.push([1])"});
    EXPECT_EQ(outcome.out, "A\n");
    EXPECT_EQ(outcome.err,
              "The script was ended: it needed more than the memory limit of 32 MiB\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Limits, LeaveAFormulaWithinThemAlone) {
    EXPECT_EQ(kxjs({"eval", "--timeout", "2147483647", "--memory", "4096", "1+1"}).out, "2\n");
}

TEST(Limits, AreInTheHelpOfTheCommandsThatHaveThem) {
    for (char const* command : {"eval", "extract"}) {
        Outcome const outcome = kxjs({command, "--help"});
        EXPECT_THAT(outcome.out, HasSubstr("--timeout MS"));
        EXPECT_THAT(outcome.out, HasSubstr("--memory MIB"));
    }
}

class WrongLimit : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(WrongLimit, EndsWithStatusTwo) {
    for (char const* command : {"eval", "extract"}) {
        std::vector<std::string> arguments = GetParam();
        arguments.insert(arguments.begin(), command);
        arguments.insert(arguments.end(), {"--js", "A"});
        Outcome const outcome = kxjs(arguments);
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
