// kxjs translate, and --translated of the commands that run formulas.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Program.h"

namespace {

using testing::HasSubstr;

TEST(Translate, PrintsTheJavaScript) {
    Outcome const outcome = kxjs({"translate", "A=2", "LEN(s)"});
    EXPECT_EQ(outcome.out, "kx.eq(A,2)\nkx.len(S)\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Translate, MarksWhatHasNoTranslation) {
    Outcome const outcome = kxjs({"translate", "1 + &x"});
    EXPECT_EQ(outcome.out, "\n");
    EXPECT_EQ(outcome.err,
              "Error in line: 1\nMACRO: a text that is evaluated at run time\n1 + &x\n    ^\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Translate, TakesVariablesFunctionsAndSettings) {
    EXPECT_EQ(kxjs({"translate", "--variable", "Price=number", "PRICE >= 5"}).out, "(Price>=5)\n");
    EXPECT_EQ(kxjs({"translate", "--function", "Tax", "TAX(1)"}).out, "Tax(1)\n");
    EXPECT_EQ(kxjs({"translate", "--exact", "A=B"}).out, "kx.exact.eq(A,B)\n");
    EXPECT_EQ(kxjs({"translate", "--date-format", "DD.MM.YYYY", "DTOC(D)"}).out,
              "kx.of(false,\"DD.MM.YYYY\",1900).dtoc(D)\n");
    EXPECT_EQ(kxjs({"translate", "--strict", "B"}).status, 1);
}

TEST(Translate, RefusesWrongOptions) {
    for (auto const& arguments : std::vector<std::vector<std::string>>{
             {"translate", "--variable", "A=date", "A"},
             {"translate", "--variable", "=text", "A"},
             {"translate", "--date-format", "DD", "A"},
             {"eval", "--js", "--translated", "A"},
             {"eval", "--exact", "A"},
         }) {
        EXPECT_EQ(kxjs(arguments).status, 2) << arguments[2];
    }
}

TEST(Translate, PrintsTheRunTimePart) {
    Outcome const outcome = kxjs({"translate", "--run-time"});
    EXPECT_THAT(outcome.out, HasSubstr("kx.len = function"));
    EXPECT_EQ(outcome.status, 0);
}

TEST(Translated, EvaluatesWithTheVariablesInAnyCase) {
    Outcome const outcome =
        kxjs({"eval", "--translated", "-v", "Name=Smith", "IIF(NAME='S', STR(1.5,6,2), '')"});
    EXPECT_EQ(outcome.out, "  1.50\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(kxjs({"eval", "--translated", "--exact", "'ABC'='AB'"}).out, "false\n");
}

TEST(Translated, TellsErrorsOfTheLanguage) {
    Outcome const outcome = kxjs({"eval", "--translated", "1+'a'"});
    EXPECT_THAT(outcome.err, HasSubstr("FormulaError: type mismatch: number + text"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(kxjs({"eval", "--translated", "LEN("}).err,
                HasSubstr("SYNTAX: an operand expected, found the end\nLEN(\n    ^"));
}

TEST(Translated, ExtractsNamesWithoutRunning) {
    Outcome const outcome = kxjs({"extract", "--translated", "price*qty + LEN(cust->name)"});
    EXPECT_EQ(outcome.out, "PRICE\nQTY\nCUST$NAME\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Translated, RunsForEachRecord) {
    Outcome const outcome = kxjs({"batch", "--translated", "IIF(a=2,b+'!',b)"}, "A,b\n1,x\n2,y\n");
    EXPECT_EQ(outcome.out, "A,b,RESULT\n1,x,x\n2,y,y!\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(kxjs({"batch", "--translated", "&a"}, "A\n1\n").status, 1);
}

TEST(Translated, ExplainsItsFunctions) {
    EXPECT_THAT(kxjs({"functions", "--translated"}).out, HasSubstr("\n  STRZERO("));
    EXPECT_THAT(kxjs({"functions", "--translated", "padl"}).out,
                HasSubstr("PADL(value, width, fill)\n"));
    EXPECT_EQ(kxjs({"functions", "padl"}).status, 2);
}

TEST(Translated, DocumentsItsFunctions) {
    Outcome const outcome = kxjs({"docs", "--translated", "--examples"});
    EXPECT_THAT(outcome.out, HasSubstr("PADL(7, 3, \"0\") &rarr; 007"));
    EXPECT_THAT(outcome.out, testing::StartsWith("<!doctype html>"));
    EXPECT_EQ(outcome.status, 0);
}

TEST(Translated, RunsAtThePrompt) {
    Outcome const outcome =
        kxjs({"repl", "--translated"}, "Price = 5\nIIF(PRICE=5,'yes','no')\n:js price=1\n");
    EXPECT_THAT(outcome.out, HasSubstr("yes\n"));
    EXPECT_THAT(outcome.out, HasSubstr("kx.eq(Price,1)\n"));
    EXPECT_EQ(outcome.status, 0);
}

}  // namespace
