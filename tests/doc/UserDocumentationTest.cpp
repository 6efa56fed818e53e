#include <gtest/gtest.h>
#include <thread>

#include "doc/Golden.h"
#include "doc/SampleFunctions.h"
#include "doc/UserDocumentation.h"

namespace {

using kx::test::golden;
using kx::test::toUtf8;

TEST(UserDocumentation, AsADocument) {
    EXPECT_EQ(toUtf8(kx::userDocumentation(true, true)), golden("document.html"));
}

TEST(UserDocumentation, WithoutExamplesHasTheFragmentsWithoutThem) {
    std::u16string const html = kx::userDocumentation(true, false);
    EXPECT_EQ(html.find(u"<i>Example :</i>"), std::u16string::npos);
    for (KxJsFunction const& function : buildStringFunctions()) {
        EXPECT_NE(html.find(function.toHtmlFragment(false)), std::u16string::npos)
            << testing::PrintToString(function.getName());
    }
}

TEST(UserDocumentation, ToBeEmbeddedIsTheBodyOfTheDocument) {
    for (bool const withExample : {false, true}) {
        std::u16string const document = kx::userDocumentation(true, withExample);
        constexpr std::u16string_view begin = u"<body>\n";
        constexpr std::u16string_view end = u"\t</body>";
        std::size_t const first = document.find(begin) + begin.size();
        EXPECT_EQ(kx::userDocumentation(false, withExample),
                  document.substr(first, document.rfind(end) - first));
    }
}

TEST(UserDocumentation, AsOnePagePerFunctionInTheOrderOfTheCatalogues) {
    std::vector<std::pair<std::u16string, std::u16string>> expected;
    for (auto const& build : {buildMathFunctions, buildStringFunctions, buildMiscFunctions}) {
        for (KxJsFunction const& function : build()) {
            expected.emplace_back(function.getName(), function.toHtmlPage());
        }
    }
    EXPECT_EQ(kx::userDocumentationPages(), expected);
}

constexpr char16_t const* headings =
    u"\t<h1>Mathematical functions</h1>\n"
    u"\t<h1>String functions</h1>\n"
    u"\t<h1>Miscellaneous functions</h1>\n";

TEST(UserDocumentation, HasItsHeadingsWhereNoFunctionIsDocumented) {
    EXPECT_EQ(kx::userDocumentation({}, false, true), headings);
    EXPECT_EQ(kx::userDocumentation({}, true, false),
              u"<!doctype html>\n<html>\n\t<head>\n"
              u"\t\t<title>Documentation for KxJSParser functions</title>\n"
              u"\t</head>\n\t<body>\n" +
                  std::u16string(headings) + u"\t</body>\n</html>");
    EXPECT_TRUE(kx::userDocumentationPages(kx::Catalogues()).empty());
}

TEST(UserDocumentation, LeavesOutIncompleteFunctions) {
    enum Field { Name, Description, ReturnDescription, Body, Example };
    kx::Catalogues catalogues;
    for (Field missing : {Name, Description, ReturnDescription, Body, Example}) {
        KxJsFunction function;
        if (missing != Name) function.setName(u"F");
        if (missing != Description) function.setDescription(u"d");
        if (missing != ReturnDescription) function.setReturnDescription(u"r");
        if (missing != Body) function.setBody(u"return 1;");
        if (missing != Example) function.addExample(u"F() &rarr; 1");
        catalogues.mathematical.push_back(function);
        catalogues.string.push_back(function);
        catalogues.miscellaneous.push_back(function);
    }
    EXPECT_EQ(kx::userDocumentation(catalogues, false, true), headings);
    EXPECT_TRUE(kx::userDocumentationPages(catalogues).empty());

    KxJsFunction const complete = kx::test::functionWithLineBreaks();
    catalogues.miscellaneous.push_back(complete);
    EXPECT_EQ(kx::userDocumentation(catalogues, false, true),
              headings + complete.toHtmlFragment(true));
    ASSERT_EQ(kx::userDocumentationPages(catalogues).size(), 1U);
}

TEST(UserDocumentation, KeepsBothFunctionsOfOneName) {
    KxJsFunction const first = kx::test::functionWithLineBreaks();
    KxJsFunction second = first;
    second.setDescription(u"Another one");
    auto const pages = kx::userDocumentationPages({{second}, {}, {first}});
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[0], std::pair(second.getName(), second.toHtmlPage()));
    EXPECT_EQ(pages[1], std::pair(first.getName(), first.toHtmlPage()));
}

TEST(UserDocumentation, IsTheSameOnManyThreadsAtOnce) {
    std::u16string const document = kx::userDocumentation(true, true);
    auto const pages = kx::userDocumentationPages();
    constexpr int rounds = 5;
    std::vector<int> equal(8);
    std::vector<std::thread> threads;
    threads.reserve(equal.size());
    for (int& count : equal) {
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                count += static_cast<int>(kx::userDocumentation(true, true) == document &&
                                          kx::userDocumentationPages() == pages);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(equal, std::vector<int>(equal.size(), rounds));
}

}  // namespace
