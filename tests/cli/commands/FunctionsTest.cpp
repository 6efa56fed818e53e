// kxjs functions: the list of built-in functions, and the texts of one.

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "Program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> linesOf(std::string const& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with('\r')) line.pop_back();  // a terminal's line end
        lines.push_back(line);
    }
    return lines;
}

/// The number of characters of a UTF-8 line.
std::size_t lengthOf(std::string const& line) {
    std::size_t length = 0;
    for (char const byte : line) length += (byte & 0xC0) == 0x80 ? 0 : 1;
    return length;
}

std::vector<std::string> namesOfFunctions() {
    std::vector<std::string> names;
    for (std::string const& line : linesOf(kxjs({"functions"}).out)) {
        if (line.starts_with("  ") && line[2] != ' ') {
            names.push_back(line.substr(2, line.find('(') - 2));
        }
    }
    return names;
}

TEST(Functions, ListsAllUnderThreeHeadings) {
    Outcome const outcome = kxjs({"functions"});
    ASSERT_EQ(outcome.status, 0);
    std::vector<std::string> headings;
    for (std::string const& line : linesOf(outcome.out)) {
        if (!line.empty() && line[0] != ' ') headings.push_back(line);
    }
    EXPECT_THAT(headings, testing::ElementsAre("Mathematical functions", "String functions",
                                               "Miscellaneous functions"));
    EXPECT_EQ(namesOfFunctions().size(), 63u);
}

TEST(Functions, AlignsTheDescriptions) {
    std::string const out = kxjs({"functions"}).out;
    EXPECT_THAT(out, HasSubstr("\n  ROUND(num, dec)                 Rounds a float\n"));
    EXPECT_THAT(out, HasSubstr("\n  EXP(x)                          Function returns"));
    // A signature that is longer than the first column has a line of its own.
    EXPECT_THAT(out, HasSubstr("\n  CHRTRAN(Input_String, Search_Pattern, Replace_Pattern)\n"
                               "                                  Returns a character string"));
}

TEST(Functions, ExplainsOne) {
    Outcome const outcome = kxjs({"functions", "ROUND"});
    EXPECT_EQ(outcome.out,
              "ROUND(num, dec)\n"
              "  Rounds a float\n"
              "\n"
              "Parameters\n"
              "  num  The value to round\n"
              "  dec  The number of decimal digits to round to.\n"
              "\n"
              "Returns\n"
              "  The rounded value\n"
              "\n"
              "Examples\n"
              "  ROUND(10.523, 2) → 10.52\n"
              "  ROUND(10.526, 2) → 10.53\n"
              "  ROUND(2.34567, 4) → 2.3457\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Functions, TakesANameInAnyLetterCase) {
    EXPECT_EQ(kxjs({"functions", "rOuNd"}).out, kxjs({"functions", "ROUND"}).out);
}

TEST(Functions, ShowsControlCharactersAsEscapes) {
    EXPECT_THAT(kxjs({"functions", "ISSPACE"}).out,
                AllOf(HasSubstr("ISSPACE('\\nab') → true\n"), HasSubstr("ISSPACE('\\tab')")));
}

TEST(Functions, ShowsNoReferenceAndNoControlCharacter) {
    std::regex const unwanted(R"(&#?[A-Za-z0-9]+;|[\x01-\x09\x0B-\x1F\x7F])");
    std::vector<std::string> const names = namesOfFunctions();
    ASSERT_EQ(names.size(), 63u);
    // The prompt prints the same texts, of all functions in one process.
    std::string input;
    for (std::string const& name : names) input += ":help " + name + "\n";
    std::string const texts = kxjs({"functions"}).out + kxjs({"repl"}, input).out;
    ASSERT_THAT(texts, HasSubstr(kxjs({"functions", names.back()}).out));
    std::smatch found;
    EXPECT_FALSE(std::regex_search(texts, found, unwanted)) << found.str();
}

TEST(Functions, FitsTheTerminal) {
    if (!hasTerminals()) GTEST_SKIP() << "no terminals here";
    for (auto const& arguments :
         {std::vector<std::string>{"functions"}, {"functions", "CHRTRAN"}}) {
        Outcome const outcome = runOnTerminal(arguments, 72);
        EXPECT_EQ(outcome.status, 0);
        bool inExamples = false;
        std::size_t longest = 0;
        for (std::string const& line : linesOf(outcome.out)) {
            inExamples = inExamples || line == "Examples";  // examples are not wrapped
            if (!inExamples) longest = std::max(longest, lengthOf(line));
        }
        EXPECT_LE(longest, 72u);
        EXPECT_GE(longest, 60u) << "wrapped too early";
    }
}

TEST(Functions, HasWholeLinesForOtherPrograms) {
    EXPECT_THAT(
        kxjs({"functions"}).out,
        HasSubstr("Extracts the last (that is, rightmost) n1 characters from str and returns "
                  "a copy of the extracted substring.\n"));
}

TEST(Functions, HonoursColumns) {
    Outcome const outcome = run({.arguments = {"functions"},
                                 .input = {},
                                 .environment = {{"COLUMNS", "64"}},
                                 .outputFile = {}});
    for (std::string const& line : linesOf(outcome.out)) EXPECT_LE(lengthOf(line), 64u) << line;
}

TEST(Functions, NamesWhatIsNearAnUnknownName) {
    Outcome const outcome = kxjs({"functions", "ROND"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, StartsWith("kxjs: there is no function \"ROND\"; near it are: ROUND"));
    EXPECT_EQ(outcome.status, 2);
}

TEST(Functions, NamesTheListWhereNothingIsNear) {
    Outcome const outcome = kxjs({"functions", "Qqqqqq"});
    EXPECT_EQ(outcome.err,
              "kxjs: there is no function \"Qqqqqq\"; \"kxjs functions\" lists them all\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST(Functions, RefusesInvalidUtf8) {
    Outcome const outcome = kxjs({"functions", "R\xE4"});
    EXPECT_EQ(outcome.err, "kxjs: name of a function: invalid UTF-8 at byte 2\n");
    EXPECT_EQ(outcome.status, 2);
}

TEST(Functions, EndsQuietlyWhereNobodyReads) {
    Outcome const outcome = runWithClosedPipe({"functions"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 128 + SIGPIPE);
}

}  // namespace
