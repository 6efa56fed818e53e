#include <gtest/gtest.h>

#include "doc/Golden.h"
#include "doc/SampleFunctions.h"

namespace {

using kx::test::golden;
using kx::test::toUtf8;

struct Shape {
    KxJsFunction function;
    std::string name;
};

std::vector<Shape> shapesOfSignatures() {
    return {
        {kx::test::builtIn(u"LISTFUNCT"), "no-parameters"},
        {kx::test::builtIn(u"SQRT"), "one-parameter"},
        {kx::test::builtIn(u"SUBSTR"), "several-parameters"},
    };
}

TEST(HtmlFragment, OfEverySignatureWithAndWithoutExamples) {
    for (auto const& [function, name] : shapesOfSignatures()) {
        EXPECT_EQ(toUtf8(function.toHtmlFragment(false)), golden("fragment-" + name + ".html"));
        EXPECT_EQ(toUtf8(function.toHtmlFragment(true)),
                  golden("fragment-" + name + "-examples.html"));
    }
}

TEST(HtmlFragment, HasNoExampleBlockWhereThereIsNoExample) {
    KxJsFunction const function = kx::test::functionWithoutExamples();
    EXPECT_EQ(toUtf8(function.toHtmlFragment(true)), golden("fragment-without-examples.html"));
    EXPECT_EQ(function.toHtmlFragment(true), function.toHtmlFragment(false));
}

TEST(HtmlFragment, BreaksLinesOfDescriptionsOnly) {
    EXPECT_EQ(toUtf8(kx::test::functionWithLineBreaks().toHtmlFragment(true)),
              golden("fragment-line-breaks-examples.html"));
}

TEST(HtmlFragment, TakesTextsThatLookLikeHolesAsTheyAre) {
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

TEST(HtmlPage, OfEverySignature) {
    for (auto const& [function, name] : shapesOfSignatures()) {
        EXPECT_EQ(toUtf8(function.toHtmlPage()), golden("page-" + name + ".html"));
    }
}

TEST(HtmlPage, HasNoExamplesBlockWhereThereIsNoExample) {
    EXPECT_EQ(toUtf8(kx::test::functionWithoutExamples().toHtmlPage()),
              golden("page-without-examples.html"));
}

TEST(HtmlPage, BreaksLinesOfDescriptionsOnly) {
    EXPECT_EQ(toUtf8(kx::test::functionWithLineBreaks().toHtmlPage()),
              golden("page-line-breaks.html"));
}

TEST(HtmlPage, WithoutParametersKeepsAnEmptyList) {
    std::u16string const page = kx::test::builtIn(u"LISTFUNCT").toHtmlPage();
    EXPECT_NE(page.find(u"<b>LISTFUNCT</b> ( )\n"), std::u16string::npos);
    EXPECT_NE(page.find(u"\t\t<dl>\n\t\t</dl>\n"), std::u16string::npos);
}

}  // namespace
