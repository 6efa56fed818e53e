// kxjs eval: the place of errors in the formula as it was typed.

#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "Program.h"
#include "support/EngineWords.h"

namespace {

struct Case {
    char const* name;
    std::string formula;
    std::string err;
};
void PrintTo(Case const& row, std::ostream* out) { *out << row.name; }

class EvalErrors : public testing::TestWithParam<Case> {};

TEST_P(EvalErrors, AreMarkedInTheFormula) {
    Outcome const outcome = kxjs({"eval", "-v", "A=5", GetParam().formula});
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, inEnginesWords<std::string>(GetParam().err));
    EXPECT_EQ(outcome.status, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Eval, EvalErrors,
    testing::Values(
        Case{"not_converted", "1 + PRICE",
             "Error in line: 1\nReferenceError: PRICE is not defined\n"
             "1 + PRICE\n"
             "    ^^^^^\n"},
        Case{"behind_a_bound_variable", "A + PRICE",
             "Error in line: 1\nReferenceError: PRICE is not defined\n"
             "A + PRICE\n"
             "    ^^^^^\n"},
        Case{"behind_converted_operators", "A<>2 .AND. PRICE>1",
             "Error in line: 1\nReferenceError: PRICE is not defined\n"
             "A<>2 .AND. PRICE>1\n"
             "           ^^^^^\n"},
        Case{"inside_a_converted_function", "1+POWER(PRICE,2)",
             "Error in line: 1\nReferenceError: PRICE is not defined\n"
             "1+POWER(PRICE,2)\n"
             "        ^^^^^\n"},
        Case{"before_converted_operators", "1 + ) .AND. A<>2",
             "Error in line: 1\nSyntaxError: Unexpected token ')'\n"
             "1 + ) .AND. A<>2\n"
             "    ^\n"},
        Case{"inside_a_built_in_function", "A<>1 .OR. A; 1+ROUND()",
             "Error in line: 1\nReferenceError: ROUND missing argument\n"
             "A<>1 .OR. A; 1+ROUND()\n"
             "               ^^^^^\n"},
        Case{"wide_mistake", "A<>1 && abc def",
             "Error in line: 1\nSyntaxError: Unexpected identifier 'def'\n"
             "A<>1 && abc def\n"
             "            ^^^\n"},
        Case{"end_of_the_formula", "A .AND.  ",
             "Error in line: 1\nSyntaxError: Unexpected end of input\n"
             "A .AND.  \n"
             "       ^\n"},
        Case{"later_line", "A +\n\tPRICE",
             "Error in line: 2\nReferenceError: PRICE is not defined\n"
             "\tPRICE\n"
             "\t^^^^^\n"},
        Case{"wide_characters", "'\u6F22e\u0301\U0001F600'+PRICE",
             "Error in line: 1\nReferenceError: PRICE is not defined\n"
             "'\u6F22e\u0301\U0001F600'+PRICE\n"
             "        ^^^^^\n"},
        Case{"unfinished_call", "1+POWER(A,2",
             "Error in line: 1\nSyntaxError: missing ) after argument list\n"
             "1+POWER(A,2\n"
             "          ^\n"},
        Case{"operator_made_by_the_conversion", "A .AND. .OR. A",
             "Error in line: 1 of the formula's JavaScript\nSyntaxError: Unexpected token '||'\n"
             "A && || A\n"
             "     ^^\n"},
        Case{"word_made_by_the_conversion", "PRINT(A) A",
             "Error in line: 1 of the formula's JavaScript\nSyntaxError: Unexpected identifier "
             "'Math'\n"
             "PR Math.floor(A) A\n"
             "   ^^^^\n"}),
    [](auto const& info) { return std::string(info.param.name); });

}  // namespace
