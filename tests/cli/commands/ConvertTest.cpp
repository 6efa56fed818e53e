// kxjs convert: one line of JavaScript for each formula.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "Program.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Convert, PrintsTheJavaScript) {
    Outcome const outcome = kxjs({"convert", "IIF(A>2 .AND. B<>0,'OK','KO')"});
    EXPECT_EQ(outcome.out, " IIF(A>2 && B!=0,'OK','KO')\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Convert, PrintsOneLineForEachArgument) {
    EXPECT_EQ(kxjs({"convert", "A<>1", "B<>2"}).out, "A!=1\nB!=2\n");
}

TEST(Convert, KeepsControlCharactersAtTheBeginning) {
    EXPECT_EQ(kxjs({"convert", "\x01(A)", "--", "\x01"}).out, "\x01(A)\n\x01\n");
}

TEST(Convert, ReadsStandardInputLineByLine) {
    Outcome const outcome = kxjs({"convert"}, "A<>1\r\nB<>2\n'é😀'<>C");
    EXPECT_EQ(outcome.out, "A!=1\nB!=2\n'é😀'!=C\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Convert, AnswersAnEmptyLineWithALine) {
    EXPECT_EQ(kxjs({"convert"}, "A\n\nB\n").out, "A\n\nB\n");
}

TEST(Convert, AnswersNothingToNoInput) {
    Outcome const outcome = kxjs({"convert"}, "");
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Convert, KeepsManyAndLongLinesApart) {
    std::string input;
    for (int i = 0; i < 1000; ++i) input += "A" + std::to_string(i) + "\n";
    input += std::string(200000, 'x') + "\n";
    Outcome const outcome = kxjs({"convert"}, input);
    EXPECT_EQ(outcome.out, input);
    EXPECT_EQ(outcome.status, 0);
}

TEST(Convert, RefusesInvalidUtf8) {
    Outcome const outcome = kxjs({"convert"}, "A<>1\n\xC0\xAF\nB<>2\n");
    EXPECT_EQ(outcome.out, "A!=1\n");
    EXPECT_EQ(outcome.err, "kxjs: standard input, line 2: invalid UTF-8 at byte 1\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST(Convert, DoesNotWaitForATerminal) {
    if (!hasTerminals()) GTEST_SKIP() << "no terminals here";
    Outcome const outcome = runOnTerminal({"convert"}, 80);
    EXPECT_THAT(outcome.err, HasSubstr("no formula given"));
    EXPECT_EQ(outcome.status, 2);
}

TEST(Convert, ReportsAFullDisk) {
    Outcome const outcome = run(
        {.arguments = {"convert", "A"}, .input = {}, .environment = {}, .outputFile = "/dev/full"});
    EXPECT_THAT(outcome.err, StartsWith("kxjs: cannot write to standard output: "));
    EXPECT_EQ(outcome.status, 1);
}

}  // namespace
