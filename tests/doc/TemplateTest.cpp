#include <gtest/gtest.h>

#include "doc/Template.h"

namespace {

using kx::fill;

TEST(Template, FillsEveryPlaceholderOfAName) {
    EXPECT_EQ(fill(u"<b>{{x}}</b> {{y}} {{x}}", {{u"x", u"1"}, {u"y", u"2"}}), u"<b>1</b> 2 1");
}

TEST(Template, DropsALineFeedAtItsStart) {
    EXPECT_EQ(fill(u"\n<p>\n", {}), u"<p>\n");
    EXPECT_EQ(fill(u"\n\n<p>", {}), u"\n<p>");
}

TEST(Template, RemovesTheLineFeedBehindAPlaceholderAloneOnItsLine) {
    constexpr char16_t const* list = u"\n<ul>\n{{items}}\n</ul>\n";
    EXPECT_EQ(fill(list, {{u"items", u""}}), u"<ul>\n</ul>\n");
    EXPECT_EQ(fill(list, {{u"items", u"<li>\n"}}), u"<ul>\n<li>\n</ul>\n");
    EXPECT_EQ(fill(u"\n{{items}}\n", {{u"items", u"x"}}), u"x");
}

TEST(Template, KeepsTheLineFeedsBesideOtherPlaceholders) {
    EXPECT_EQ(fill(u"a {{x}}\n{{x}} b\n", {{u"x", u"1"}}), u"a 1\n1 b\n");
    EXPECT_EQ(fill(u"{{x}}", {{u"x", u"1"}}), u"1");
    EXPECT_EQ(fill(u"{{x}}{{x}}\n", {{u"x", u"1"}}), u"11\n");
}

TEST(Template, DoesNotSearchTextsForPlaceholders) {
    EXPECT_EQ(fill(u"{{x}}{{y}}", {{u"x", u"{{y}}"}, {u"y", u"{{"}}), u"{{y}}{{");
}

TEST(Template, LeavesOtherBracesAlone) {
    EXPECT_EQ(fill(u"h1{color:red;} {{unknown}} {{x", {{u"x", u"1"}}),
              u"h1{color:red;} {{unknown}} {{x");
}

}  // namespace
