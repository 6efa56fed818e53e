// kxjs extract: the free names of formulas.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Program.h"

namespace {

using testing::StartsWith;

TEST(Extract, PrintsTheNamesInTheOrderInWhichRunsFail) {
    Outcome const outcome = kxjs({"extract", "--js", "A + B"});
    EXPECT_EQ(outcome.out, "A\nB\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Extract, ConvertsUnlessTold) { EXPECT_EQ(kxjs({"extract", "A<>1 .AND. B<>2"}).out, "A\nB\n"); }

TEST(Extract, KnowsTheBuiltInFunctions) {
    EXPECT_EQ(kxjs({"extract", "--js", "ROUND(X,2)"}).out, "X\n");
}

TEST(Extract, PrintsANameOfSeveralFormulasOnce) {
    EXPECT_EQ(kxjs({"extract", "--js", "A + B", "B + C"}).out, "A\nB\nC\n");
}

TEST(Extract, ReadsStandardInput) { EXPECT_EQ(kxjs({"extract"}, "A+B\nC\n").out, "A\nB\nC\n"); }

TEST(Extract, PrintsNothingForAFormulaWithoutNames) {
    Outcome const outcome = kxjs({"extract", "1+1"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Extract, ReportsASourceThatDoesNotCompileAndGoesOn) {
    Outcome const outcome = kxjs({"extract", "--js", "1+", "A"});
    EXPECT_EQ(outcome.out, "A\n");
    EXPECT_THAT(outcome.err, StartsWith("kxjs: formula 1:\nError in line: 1\nSyntaxError: "));
    EXPECT_EQ(outcome.status, 1);
}

TEST(Extract, RefusesInvalidUtf8) {
    Outcome const outcome = kxjs({"extract", "A\x80"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "kxjs: formula 1: invalid UTF-8 at byte 2\n");
    EXPECT_EQ(outcome.status, 2);
}

}  // namespace
