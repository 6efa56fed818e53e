// The records of the language's functions, for documentation.
#include <gtest/gtest.h>
#include <set>

#include "Translated.h"
#include "support/Utf8.h"

namespace {

std::string plain(std::string text) {
    for (auto const& [entity, sign] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}}) {
        for (std::size_t at = 0; (at = text.find(entity, at)) != std::string::npos; ++at) {
            text.replace(at, std::string_view(entity).size(), sign);
        }
    }
    return text;
}

TEST(Records, AreCompleteAndHaveDifferentNames) {
    std::set<std::u16string> names;
    for (KxJsFunction const& function : KxJsTranslator::functions()) {
        EXPECT_TRUE(function.isComplete()) << kx::test::toUtf8(function.getName());
        EXPECT_TRUE(names.insert(function.getName()).second)
            << kx::test::toUtf8(function.getName());
    }
    EXPECT_GT(names.size(), 90U);
}

TEST(Records, ExamplesGiveWhatTheySay) {
    Translated translated;
    for (KxJsFunction const& function : KxJsTranslator::functions()) {
        for (std::u16string const& example : function.getExamples()) {
            std::string const text = kx::test::toUtf8(example);
            std::string_view constexpr kArrow = " &rarr; ";
            std::size_t const arrow = text.find(kArrow);
            ASSERT_NE(arrow, std::string::npos) << text;
            EXPECT_EQ(translated.run(plain(text.substr(0, arrow))),
                      plain(text.substr(arrow + kArrow.size())))
                << text;
        }
    }
}

}  // namespace
