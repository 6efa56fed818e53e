#include <gtest/gtest.h>

#include "doc/Golden.h"
#include "doc/SampleFunctions.h"

namespace {

using kx::test::golden;
using kx::test::toUtf8;

TEST(HtmlFragment, OfAFunctionWithAndWithoutParameters) {
    EXPECT_EQ(toUtf8(kx::test::builtIn(u"SUBSTR").toHtmlFragment(false)),
              golden("fragment-several-parameters.html"));
    EXPECT_EQ(toUtf8(kx::test::builtIn(u"LISTFUNCT").toHtmlFragment(false)),
              golden("fragment-no-parameters.html"));
}

TEST(HtmlFragment, WithExamples) {
    EXPECT_EQ(toUtf8(kx::test::builtIn(u"SUBSTR").toHtmlFragment(true)),
              golden("fragment-several-parameters-examples.html"));
}

TEST(HtmlFragment, HasNoExampleBlockWithoutExamples) {
    KxJsFunction const function = kx::test::functionWithoutExamples();
    EXPECT_EQ(function.toHtmlFragment(true), function.toHtmlFragment(false));
}

TEST(HtmlFragment, BreaksLinesOfDescriptionsOnly) {
    EXPECT_EQ(toUtf8(kx::test::functionWithLineBreaks().toHtmlFragment(true)),
              golden("fragment-line-breaks-examples.html"));
}

TEST(HtmlFragment, TakesTextsThatLookLikePlaceholdersAsTheyAre) {
    KxJsFunction function;
    function.setName(u"{{0}}");
    function.addParameter({u"{{description}}", u"d"});
    EXPECT_EQ(function.toHtmlFragment(false),
              u"<div style='margin-bottom:10px;' id='{{0}}'>\n"
              u"\t<b>{{0}}({{description}})</b><br/>\n"
              u"\t<i></i><br/>\n"
              u"\t<span style='color:purple;'>&rarr; Parameter</span> {{description}} = d<br/>\n"
              u"\t<span style='color:green;'>&larr; Return</span> <br/>\n"
              u"</div>\n");
}

TEST(HtmlPage, OfAFunctionWithAndWithoutParameters) {
    EXPECT_EQ(toUtf8(kx::test::builtIn(u"SUBSTR").toHtmlPage()),
              golden("page-several-parameters.html"));
    EXPECT_EQ(toUtf8(kx::test::builtIn(u"LISTFUNCT").toHtmlPage()),
              golden("page-no-parameters.html"));
}

TEST(HtmlPage, HasNoExampleBlockWithoutExamples) {
    constexpr char16_t const* block = u"<div class='divSection' id='examples'>";
    EXPECT_EQ(kx::test::functionWithoutExamples().toHtmlPage().find(block), std::u16string::npos);
    EXPECT_NE(kx::test::builtIn(u"SUBSTR").toHtmlPage().find(block), std::u16string::npos);
}

TEST(HtmlPage, BreaksLinesOfDescriptionsOnly) {
    EXPECT_EQ(toUtf8(kx::test::functionWithLineBreaks().toHtmlPage()),
              golden("page-line-breaks.html"));
}

}  // namespace
