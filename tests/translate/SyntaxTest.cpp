// What is no formula, and what has no translation: code, place and text of the findings.
#include <gtest/gtest.h>
#include <string>

#include "support/Utf8.h"
#include "translate/KxJsTranslator.h"

namespace {

/// "CODE position+length: text" for each finding.
std::string findings(std::string_view formula) {
    std::string all;
    auto const translation = KxJsTranslator().translate(kx::test::toUtf16(formula));
    for (auto const& finding : translation.findings) {
        if (!all.empty()) all += "; ";
        all += kx::test::toUtf8(finding.code) + ' ' + std::to_string(finding.position) + '+' +
               std::to_string(finding.length) + ": " + kx::test::toUtf8(finding.text);
    }
    EXPECT_EQ(translation.javaScript.empty(), !translation.findings.empty()) << formula;
    return all;
}

TEST(Syntax, TellsWhereAFormulaEndsToBeOneAndWhatWasExpected) {
    struct Row {
        char const* formula;
        char const* finding;
    };
    for (Row const& row : {
             Row{"", "SYNTAX 0+0: an operand expected, found the end"},
             {"  && nothing", "SYNTAX 12+0: an operand expected, found the end"},
             {"= 5", "SYNTAX 0+1: an operand expected, found \"=\""},
             {"? 5", "SYNTAX 0+1: an operand expected, found \"?\""},
             {"A B", "SYNTAX 2+1: an operator or the end expected, found \"B\""},
             {"(A", "SYNTAX 2+0: an operator or \")\" expected, found the end"},
             {"A)", "SYNTAX 1+1: an operator or the end expected, found \")\""},
             {"F(A", "SYNTAX 3+0: an operator, \",\" or \")\" expected, found the end"},
             {"A +", "SYNTAX 3+0: an operand expected, found the end"},
             {"A = = B", "SYNTAX 4+1: an operand expected, found \"=\""},
             {"A . 5", "SYNTAX 4+1: a name behind the point expected, found \"5\""},
             {"\"abc", "SYNTAX 0+4: text not closed"},
             {"\"a\nb\"", "SYNTAX 0+2: text not closed"},
             {"[abc", "SYNTAX 0+4: text not closed"},
             {R"(e"\q")", "SYNTAX 2+2: unknown escape in a text"},
             {"e\"a\\", "SYNTAX 0+4: text not closed"},
             {"'it''s'", "SYNTAX 4+1: an operator or the end expected, found \"'\""},
             {"1 /* open", "SYNTAX 2+2: comment not closed"},
             {"5A", "SYNTAX 1+1: a letter directly behind a number"},
             {"1E", "SYNTAX 1+1: a letter directly behind a number"},
             {"0x", "SYNTAX 1+1: a letter directly behind a number"},
             {"1.T.", "SYNTAX 1+1: an operator or the end expected, found \".\""},
             {"5..AND.x", "SYNTAX 1+1: an operator or the end expected, found \".\""},
             {"1E999", "SYNTAX 0+5: the number is too large"},
             {"{^2020-02-30}", "SYNTAX 0+13: impossible date"},
             {"{^20-02-30}", "SYNTAX 0+4: not a date: {^YYYY-MM-DD} expected"},
             {"0d20201301", "SYNTAX 0+10: impossible date"},
             {"d\"2020-13-01\"", "SYNTAX 0+13: not a date"},
             {"A; B", "SYNTAX 1+1: an operator or the end expected, found \";\""},
             {"A \xC3\x97 B", "SYNTAX 2+1: an operator or the end expected, found \"\xC3\x97\""},
         }) {
        EXPECT_EQ(findings(row.formula), row.finding) << row.formula;
    }
}

TEST(Syntax, QuotesCharactersOfTwoUnitsAsAWhole) {
    struct Row {
        char16_t const* formula;
        std::size_t length;
        char16_t const* text;
    };
    for (Row const& row : {
             Row{u"A \U0001F600", 2, u"an operator or the end expected, found \"\U0001F600\""},
             {u"\U0001F600 A", 2, u"an operand expected, found \"\U0001F600\""},
             {u"\xD83D A", 1, u"an operand expected, found \"\xD83D\""},
             {u"A.'abcdefghijklmnopqrstuv\U0001F600 '", 27,
              u"a name behind the point expected, found \"'abcdefghijklmnopqrstuv...\""},
         }) {
        auto const findings = KxJsTranslator().translate(row.formula).findings;
        ASSERT_EQ(findings.size(), 1U) << kx::test::toUtf8(row.formula);
        EXPECT_EQ(findings[0].length, row.length) << kx::test::toUtf8(row.formula);
        EXPECT_EQ(findings[0].text, row.text) << kx::test::toUtf8(row.formula);
    }
}

TEST(Syntax, CollectsWhatHasNoTranslation) {
    struct Row {
        char const* formula;
        char const* codes;
    };
    for (Row const& row : {
             Row{"&X", "MACRO 0+1: a text that is evaluated at run time"},
             {"&(X)", "MACRO 0+1: a text that is evaluated at run time"},
             {"EVALUATE(X)", "MACRO 0+8: a text that is evaluated at run time"},
             {"{|x| x+1}", "BLOCK 0+1: a code block"},
             {"{||1}", "BLOCK 0+1: a code block"},
             {"{||}", "BLOCK 0+1: a code block"},
             {"A&X", "MACRO 1+1: a text that is evaluated at run time"},
             {"&X.Y", "MACRO 0+1: a text that is evaluated at run time"},
             {"&X.AND .T.", "MACRO 0+1: a text that is evaluated at run time"},
             {"&X.1 + 1", "MACRO 0+1: a text that is evaluated at run time"},
             {"A:&X",
              "OBJECT 1+1: a member of an object; "
              "MACRO 2+1: a text that is evaluated at run time"},
             {"F5(@x)",
              "FUNCTION_UNKNOWN 0+2: unknown function F5; "
              "REFERENCE 3+1: a variable passed by reference"},
             {"{1,2}", "ARRAY 0+1: an array"},
             {"{}", "ARRAY 0+1: an array"},
             {"{=>}", "ARRAY 0+1: an array"},
             {"a[1]", "ARRAY 1+1: an element of an array"},
             {"a[1,2]", "ARRAY 1+1: an element of an array"},
             {"a:b", "OBJECT 1+1: a member of an object"},
             {"::b", "OBJECT 0+2: a member of an object"},
             {"a.b()", "OBJECT 0+1: a method of an object"},
             {".b", "OBJECT 0+1: a member of an object"},
             {".b.c(1)[2].d",
              "OBJECT 0+1: a member of an object; "
              "OBJECT 2+1: a member of an object; "
              "ARRAY 7+1: an element of an array; "
              "OBJECT 10+1: a member of an object"},
             {"(x)->y", "ALIAS_EXPRESSION 3+2: an expression of a work area"},
             {"A->(x)", "ALIAS_EXPRESSION 1+2: an expression of a work area"},
             {"a := 1", "ASSIGNMENT 2+2: a variable is changed"},
             {"a += 1", "ASSIGNMENT 2+2: a variable is changed"},
             {"a++", "ASSIGNMENT 1+2: a variable is changed"},
             {"--a", "ASSIGNMENT 0+2: a variable is changed"},
             {"(a, b)", "LIST 2+1: several values in parentheses"},
             {"{01/31/2020}",
              "DATE_AMBIGUOUS 0+12: a date whose order of day and month depends on a setting"},
             {"{^2020-01-31 10:00}", "DATE_TIME 0+19: a date with a time"},
             {"TYPE(x)", "TYPE_TEXT 0+4: TYPE of what is no text literal"},
             {"JUST(x)", "AMBIGUOUS_NAME 0+4: several functions begin with JUST"},
             {"foo(x)", "FUNCTION_UNKNOWN 0+3: unknown function FOO"},
             {"KX + 1", "RESERVED_NAME 0+2: the name KX is reserved"},
             {"ouraccessor", "RESERVED_NAME 0+11: the name OURACCESSOR is reserved"},
         }) {
        EXPECT_EQ(findings(row.formula), row.codes) << row.formula;
    }
}

TEST(Syntax, RefusesTooDeepTreesAndNoOthers) {
    auto const chain = [](std::size_t operators) {
        std::string formula = "1";
        for (std::size_t i = 0; i < operators; ++i) formula += "+1";
        return formula;
    };
    EXPECT_EQ(findings(chain(500)), "");
    EXPECT_EQ(findings(chain(501)), "SYNTAX 1001+1: formula too deeply nested");
    auto const nested = [](std::size_t levels) {
        return std::string(levels, '(') + "1" + std::string(levels, ')');
    };
    EXPECT_EQ(findings(nested(600)), "");
    EXPECT_EQ(findings(nested(602)), "SYNTAX 601+0: formula too deeply nested");
}

TEST(Syntax, LongTextsOfOneKindEndInAFinding) {
    for (std::string const unit :
         {"(", "-",    "!", "{|",     "F(",       "[",  "&",  "A->(", "1+",  "a[",   ".a",
          "@", "NOT ", "{", "TYPE('", "IIF(.T.,", "++", "a:", "*\n",  "a:=", "F()+="}) {
        std::string formula;
        for (std::size_t i = 0; i < 20000; ++i) formula += unit;
        EXPECT_NE(findings(formula), "") << unit;
    }
}

}  // namespace
