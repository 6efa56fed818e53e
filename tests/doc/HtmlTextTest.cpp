#include <gtest/gtest.h>

#include "doc/HtmlText.h"

namespace {

TEST(LineBreaks, StandForCarriageReturnAndLineFeedTogether) {
    struct Case {
        std::u16string text;
        std::u16string html;
    };
    std::vector<Case> const cases = {
        {u"", u""},
        {u"one line", u"one line"},
        {u"one\r\ntwo", u"one<br/>two"},
        {u"one\r\n\r\ntwo", u"one<br/><br/>two"},
        {u"\r\none\r\n", u"<br/>one<br/>"},
        {u"one\ntwo", u"one\ntwo"},
        {u"one\rtwo", u"one\rtwo"},
        {u"one\n\rtwo", u"one\n\rtwo"},
        {u"one\r\r\ntwo", u"one\r<br/>two"},
        {u"one\r", u"one\r"},
        {u"a<b>&rarr;\r\n", u"a<b>&rarr;<br/>"},
    };
    for (Case const& expected : cases) {
        EXPECT_EQ(kx::withLineBreaks(expected.text), expected.html);
    }
}

TEST(ParameterNames, HaveTheSeparatorBetweenThem) {
    KxJsFunction function;
    EXPECT_EQ(kx::joinParameterNames(function, u", "), u"");
    function.addParameter({u"a", u"first"});
    EXPECT_EQ(kx::joinParameterNames(function, u", "), u"a");
    function.addParameter({u"b", u"second"});
    function.addParameter({u"c", u"third"});
    EXPECT_EQ(kx::joinParameterNames(function, u", "), u"a, b, c");
    EXPECT_EQ(kx::joinParameterNames(function, u" , "), u"a , b , c");
}

}  // namespace
