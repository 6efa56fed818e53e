// kxjs --version, --help, and messages about wrong usage.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

#include "Program.h"

namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

TEST(Usage, VersionNamesLibraryAndEngine) {
    Outcome const outcome = kxjs({"--version"});
    EXPECT_THAT(outcome.out, MatchesRegex("kxjs [0-9]+\\.[0-9]+\\.[0-9]+ \\(V8 [0-9.]+\\)\n"));
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Usage, HelpNamesEveryCommand) {
    Outcome const outcome = kxjs({"--help"});
    for (char const* command :
         {"eval", "batch", "convert", "extract", "functions", "docs", "repl"}) {
        EXPECT_THAT(outcome.out, HasSubstr(std::string("\n  ") + command + " "));
    }
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Usage, EveryCommandHasHelpWithAnExample) {
    for (char const* command : {"eval", "batch", "convert", "extract", "functions", "docs"}) {
        Outcome const outcome = kxjs({command, "--help"});
        EXPECT_THAT(outcome.out, HasSubstr(std::string("Example: kxjs ") + command));
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.status, 0);
    }
}

struct WrongUsage {
    char const* name;
    std::vector<std::string> arguments;
    std::string message;
};
void PrintTo(WrongUsage const& row, std::ostream* out) { *out << row.name; }

class Wrong : public testing::TestWithParam<WrongUsage> {};

TEST_P(Wrong, IsNamedAndEndsWithStatusTwo) {
    Outcome const outcome = kxjs(GetParam().arguments);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr(GetParam().message));
    EXPECT_EQ(outcome.status, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Usage, Wrong,
    testing::Values(
        WrongUsage{"nothing", {}, "no command given; there are: eval, batch,"},
        WrongUsage{"unknown_command",
                   {"evaluate", "1"},
                   "\"evaluate\" is not a command; there are: eval,"},
        WrongUsage{"option_without_command", {"--js"}, "\"--js\" is not a command"},
        WrongUsage{"unknown_option", {"eval", "--fast", "1"}, "--fast"},
        WrongUsage{"formula_like_an_option", {"eval", "-A"}, "goes after --"},
        WrongUsage{"option_without_value", {"eval", "-v"}, "-v"},
        WrongUsage{"convert_knows_no_variables", {"convert", "-v", "A=1", "A"}, "-v"},
        WrongUsage{"functions_takes_one_name", {"functions", "ROUND", "STR"}, "STR"},
        WrongUsage{"docs_takes_no_argument", {"docs", "ROUND"}, "ROUND"},
        WrongUsage{"docs_pages_and_file", {"docs", "--pages", "d", "-o", "f"}, "-o"},
        WrongUsage{"docs_pages_and_fragment", {"docs", "--pages", "d", "--fragment"}, "--fragment"},
        WrongUsage{"docs_pages_and_examples", {"docs", "--pages", "d", "--examples"}, "--examples"},
        WrongUsage{"docs_empty_file", {"docs", "-o", ""}, "-o"},
        WrongUsage{"docs_empty_directory", {"docs", "--pages", ""}, "--pages"}),
    [](auto const& info) { return std::string(info.param.name); });

}  // namespace
