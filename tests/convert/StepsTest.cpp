// The cost of a conversion is linear in the length of the formula, whatever the formula. It is not
// measured as time: the workspace counts units read and written, items matched and calls looked at.
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "convert/Pipeline.h"

namespace {

std::size_t stepsFor(std::u16string formula) {
    kx::Workspace work(formula);
    kx::convert(work);
    return work.steps;
}

using Family = std::function<std::u16string(std::size_t)>;

Family repeat(std::u16string const& piece, std::u16string const& before = u"",
              std::u16string const& after = u"") {
    return [=](std::size_t count) {
        std::u16string text = before;
        for (std::size_t i = 0; i < count; ++i) text += piece;
        return text + after;
    };
}

Family nest(std::u16string const& open, std::u16string const& close) {
    return [=](std::size_t count) { return repeat(open)(count) + repeat(close)(count); };
}

struct NamedFamily {
    char const* name;
    Family make;
};

std::vector<NamedFamily> const families = {
    {"open calls", repeat(u"SIN(")},
    {"open calls of every kind", repeat(u"SIN(COS (TG(MOD(POWER(IF(EVAL(LTRIM(REPL(LEFT(round (")},
    {"open calls with commas", repeat(u"MOD(a,")},
    {"open calls, commas at the end", repeat(u"MOD(a", u"", std::u16string(1000, u','))},
    {"calls without a second argument", repeat(u"MOD(MOD(", u"", u",)")},
    {"empty calls", repeat(u"SIN()LEN()MOD(,)")},
    {"nested calls", nest(u"SIN(", u")")},
    {"nested calls with two arguments", nest(u"MOD(", u",b)")},
    {"calls in a row", repeat(u"ABS(a)+LEFT(b,1)-POWER(2,3)*LTRIM(s)/IIF(a,b,c)")},
    {"calls to be spelled", repeat(u"round (max (a)+min\t(b)")},
    {"blanks", repeat(u" ")},
    {"blanks behind a name", repeat(u" ", u"SIN", u"x")},
    {"blanks and parentheses", repeat(u"SIN   (")},
    {"all white space", repeat(u" \t\n\u2028\u3000")},
    {"digits", repeat(u"1")},
    {"digits before a caret", repeat(u"1", u"", u"^")},
    {"digits behind a caret", repeat(u"1", u"^")},
    {"digits and blanks before a caret", repeat(u"1 ", u"", u"^")},
    {"digits, then blanks before a caret", repeat(u" ", u"1", u"^x")},
    {"blanks between carets", repeat(u"2^    ")},
    {"numbers with commas", repeat(u"1,1,", u"", u"^")},
    {"numbers with points", repeat(u"12.34.", u"", u"^x")},
    {"carets", repeat(u"^")},
    {"digits and carets", repeat(u"2^")},
    {"powers", repeat(u"2^3 ")},
    {"powers of stars", repeat(u"2**3**")},
    {"stars", repeat(u"*")},
    {"operators", repeat(u"<>>=/==<\\")},
    {"quotes", repeat(u"'\"\\'<>")},
    {"an open quote", repeat(u"<>", u"'")},
    {"words", repeat(u" NOT")},
    {"words with dots", repeat(u" .AND. .OR.")},
    {"half words", repeat(u" .NO .AN .XO")},
    {"truth values", repeat(u"TRUEFALSE")},
    {"trims", repeat(u"L TRIM(x)ALLTRIM(y)")},
    {"trims to be joined", repeat(u"L RTRIM")},
    {"idle letters", repeat(u"abc")},
    {"beyond ASCII", repeat(u"中\U0001F600")},
};

TEST(Steps, DoubleWithTheLengthOfTheFormula) {
    for (NamedFamily const& family : families) {
        std::size_t const once = stepsFor(family.make(10000));
        std::size_t const twice = stepsFor(family.make(20000));
        EXPECT_LE(static_cast<double>(twice), 2.2 * static_cast<double>(once)) << family.name;
    }
}

TEST(Steps, AreBoundedForEachUnit) {
    // The upper bound is for the constant of the linear growth; no family comes near. The lower one
    // shows that the steps are counted: every unit is read at least once.
    for (NamedFamily const& family : families) {
        std::u16string const formula = family.make(10000);
        std::size_t const steps = stepsFor(formula);
        EXPECT_LE(steps / formula.size(), 300U) << family.name;
        EXPECT_GE(steps, formula.size()) << family.name;
    }
}

}  // namespace
