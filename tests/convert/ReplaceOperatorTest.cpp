#include <gtest/gtest.h>
#include <string>

#include "ConverterPasses.h"

namespace {

struct Line {
    std::u16string text, op, replacement, expected;
};

TEST(ReplaceOperator, ReplacesOutsideQuotesOnly) {
    for (Line const& line : {
             Line{u"a<>b", u"<>", u"!=", u"a!=b"},
             Line{u"a<>b<>c", u"<>", u"!=", u"a!=b!=c"},
             Line{u"'a<>b'<>c", u"<>", u"!=", u"'a<>b'!=c"},
             Line{u"\"a<>b\"<>c", u"<>", u"!=", u"\"a<>b\"!=c"},
             Line{u"x'a<>b", u"<>", u"!=", u"x'a<>b"},
             // A quote of one kind ends text that a quote of the other kind began.
             Line{u"'a\"<>b", u"<>", u"!=", u"'a\"!=b"},
             // A quote behind a backslash does not count.
             Line{u"'a\\'<>b'<>c", u"<>", u"!=", u"'a\\'<>b'!=c"},
             Line{u"a\\'<>b", u"<>", u"!=", u"a\\'!=b"},
             Line{u"a\\\\'<>b", u"<>", u"!=", u"a\\\\'!=b"},
         }) {
        EXPECT_EQ(ConverterPasses::replaceOperator(line.text, line.op, line.replacement),
                  line.expected);
    }
}

TEST(ReplaceOperator, StopsBeforeTheLastPlaceWhereTheOperatorFits) {
    for (Line const& line : {
             Line{u"a<>", u"<>", u"!=", u"a<>"},
             Line{u"<>", u"<>", u"!=", u"<>"},
             Line{u"\\", u"\\", u"/", u"\\"},
             Line{u"a\\", u"\\", u"/", u"a\\"},
             Line{u"\\a", u"\\", u"/", u"/a"},
             // The text as it is by then decides where that is.
             Line{u"****", u"**", u"^", u"^**"},
             Line{u"**a**b", u"**", u"^", u"^a**b"},
             Line{u"**ab**c", u"**", u"^", u"^ab^c"},
             Line{u"**ab**", u"**", u"^", u"^ab**"},
         }) {
        EXPECT_EQ(ConverterPasses::replaceOperator(line.text, line.op, line.replacement),
                  line.expected);
    }
}

TEST(ReplaceOperator, SkipsTheUnitAfterAReplacement) {
    for (Line const& line : {
             Line{u"a\\\\b", u"\\", u"/", u"a/\\b"},
             Line{u"<><><>a", u"<>", u"!=", u"!=<>!=a"},
             // A quote there begins no quoted text.
             Line{u"<>'<>a", u"<>", u"!=", u"!='!=a"},
             Line{u"\\'a\\b", u"\\", u"/", u"/'a/b"},
             // With a shorter replacement two units are skipped.
             Line{u"**'a**b", u"**", u"^", u"^'a^b"},
         }) {
        EXPECT_EQ(ConverterPasses::replaceOperator(line.text, line.op, line.replacement),
                  line.expected);
    }
}

TEST(ReplaceOperator, ComparesCaseAndWholeOperators) {
    EXPECT_EQ(ConverterPasses::replaceOperator(u"ab AB Ab ", u"AB", u"x"), u"ab x Ab ");
    EXPECT_EQ(ConverterPasses::replaceOperator(u"<<>>", u"<>", u"!="), u"<!=>");
}

TEST(ReplaceOperator, LeavesTextsThatAreTooShort) {
    EXPECT_EQ(ConverterPasses::replaceOperator(u"", u"<>", u"!="), u"");
    EXPECT_EQ(ConverterPasses::replaceOperator(u"<", u"<>", u"!="), u"<");
    EXPECT_EQ(ConverterPasses::replaceOperator(u"ab", u"abcdef", u"!="), u"ab");
    EXPECT_EQ(ConverterPasses::replaceOperator(u"ab", u"", u""), u"ab");
}

TEST(ReplaceOperator, CanLengthenTheText) {
    EXPECT_EQ(ConverterPasses::replaceOperator(u"a<b<c ", u"<", u"[]"), u"a[]b[]c ");
    EXPECT_EQ(ConverterPasses::replaceOperator(u"a<>b<>c ", u"<>", u"[--]"), u"a[--]b[--]c ");
}

}  // namespace
