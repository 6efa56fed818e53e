// Patterns and matching by themselves, also with patterns that no rule has.
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>
#include <string_view>

#include "NaiveConverter.h"
#include "convert/PatternAnalysis.h"
#include "convert/Rewriting.h"

namespace {

using namespace std::string_view_literals;

std::u16string replaced(std::u16string text, std::u16string_view pattern,
                        std::u16string_view replacement) {
    kx::Workspace work(text);
    kx::applyEverywhere(kx::Rule(pattern, replacement), nullptr, work);
    return text;
}

TEST(Pattern, RefusesWhatItDoesNotSupport) {
    for (std::u16string_view const pattern :
         {u""sv,      u"a*"sv,    u"a|"sv,    u"(a"sv,     u"a)"sv,     u"[a"sv,
          u"[a-z]"sv, u"a**"sv,   u"a*?"sv,   u"a+?"sv,    u"a{2}"sv,   u"(a)*"sv,
          u"(?:a)"sv, u"((a))"sv, u"(a)|b"sv, u"^a"sv,     u"a$"sv,     u"\\ba"sv,
          u"\\w"sv,   u"a\\"sv,   u"\\1"sv,   u"\u00e9"sv, u"*a"sv,     u"]"sv,
          u"}"sv,     u"a\\n"sv,  u"[\\n]"sv, u"(a)+"sv,   u"a?(b|c)"sv}) {
        EXPECT_THROW(kx::Pattern{pattern}, std::invalid_argument)
            << testing::PrintToString(pattern);
    }
}

TEST(Pattern, KnowsWhichLoopsMayGiveBack) {
    for (std::u16string_view const pattern :
         {u"a+b"sv, u"a*b+c"sv, u"\\s*\\("sv, u"[^)]+\\)"sv, u"[^,]+,([^)]+)\\)"sv, u"\\d+"sv,
          u"a?b"sv, u"ab?"sv, u"a+.?"sv}) {
        EXPECT_TRUE(kx::Pattern(pattern).isOnePass()) << testing::PrintToString(pattern);
    }
    for (std::u16string_view const pattern :
         {u"a+a"sv, u".*b"sv, u"a?a"sv, u"\\d+.?b"sv, u"[^)]+,"sv, u"a+A"sv, u"(a+|b)ab"sv}) {
        EXPECT_FALSE(kx::Pattern(pattern).isOnePass()) << testing::PrintToString(pattern);
    }
}

TEST(Pattern, RecognisesCalls) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(kx::calledNames(kx::Pattern(u"(IF|IIF)\\s*\\(")), (Names{"IIF", "IF"}));
    EXPECT_EQ(kx::calledNames(kx::Pattern(u"Log10\\s*\\(([^)]+)\\)")), Names{"LOG10"});
    for (std::u16string_view const pattern :
         {u"\\s*\\("sv, u"IF\\("sv, u"IF\\s+\\("sv, u"I.F\\s*\\("sv, u"I F\\s*\\("sv, u"IF\\s*x"sv,
          u"IF|ELSE\\s*\\("sv, u"I+F\\s*\\("sv}) {
        EXPECT_EQ(kx::calledNames(kx::Pattern(pattern)), std::nullopt)
            << testing::PrintToString(pattern);
    }
}

TEST(Pattern, NamesWordsThatEveryMatchHolds) {
    EXPECT_EQ(kx::necessaryWords(kx::Pattern(u"\\sOR\\s|\\s.NOT.\\s"), 4).size(), 2U);
    EXPECT_EQ(kx::necessaryWords(kx::Pattern(u"TRUE"), 3).front().size(), 3U);
    auto const power = kx::necessaryWords(kx::Pattern(u"\\d+.?[\\^]\\s*\\d"), 4);
    ASSERT_EQ(power.size(), 1U);
    EXPECT_EQ(power.front(), kx::Word{kx::literalSet(u'^')});
    EXPECT_TRUE(kx::necessaryWords(kx::Pattern(u"\\s+"), 4).empty());
    EXPECT_EQ(kx::necessaryWords(kx::Pattern(u"a+|\\db+"), 4).size(), 2U);
    EXPECT_TRUE(kx::necessaryWords(kx::Pattern(u"a+|\\d+"), 4).empty());
}

TEST(Pattern, InsertsGroups) {
    EXPECT_EQ(replaced(u"ab-ab", u"(a)(b)", u"<$2$1>"), u"<ba>-<ba>");
    EXPECT_EQ(replaced(u"ab", u"a", u"$"), u"$b");
    EXPECT_EQ(replaced(u"ab", u"a", u"$0"), u"$0b");
}

/// Generates supported patterns, and texts, over a small alphabet. In most patterns, neighbours
/// match the same units.
class PatternGenerator {
  public:
    explicit PatternGenerator(std::uint64_t seed) : random_(seed) {}

    std::u16string pattern() {
        std::u16string result;
        for (std::size_t parts = 1 + below(4); parts > 0; --parts) result += part();
        return result;
    }

    std::u16string text() {
        static constexpr auto units = u"aaabbAB11^( )\n\u2028\u00a0\u00e9"sv;
        std::u16string result;
        for (std::size_t length = below(24); length > 0; --length) {
            result += units[below(units.size())];
        }
        return result;
    }

  private:
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(random_() % bound); }

    std::u16string item() {
        static constexpr auto atoms = std::to_array<std::u16string_view>(
            {u"a", u"b", u"B", u"1", u".", u"\\s", u"\\d", u"[^a]", u"[ab]", u"[\\^]", u"[^\\s1]"});
        static constexpr auto quantifiers =
            std::to_array<std::u16string_view>({u"", u"", u"", u"*", u"+", u"?"});
        return std::u16string(atoms[below(std::size(atoms))]) +
               std::u16string(quantifiers[below(std::size(quantifiers))]);
    }

    std::u16string part() {
        if (below(3) != 0) return item();
        return u"(" + item() + item() + (below(2) == 0 ? u"|" + item() : u"") + u")";
    }

    std::mt19937_64 random_;
};

TEST(Pattern, MatchesAsTheEngineDoes) {
    NaiveConverter naive;
    PatternGenerator generator(3);
    int accepted = 0;
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        std::u16string pattern = generator.pattern();
        try {
            kx::Pattern const compiled(pattern);
        } catch (std::invalid_argument const&) {
            continue;  // it can match the empty text, or has too many loops
        }
        ++accepted;
        for (int texts = 0; texts < 5; ++texts) {
            std::u16string const text = generator.text();
            EXPECT_EQ(replaced(text, pattern, u"<>"), naive.replace(text, pattern, u"<>"))
                << testing::PrintToString(pattern) << " on " << testing::PrintToString(text);
            if (pattern.find(u'(') == std::u16string::npos) continue;
            EXPECT_EQ(replaced(text, pattern, u"<$1>"), naive.replace(text, pattern, u"<$1>"))
                << testing::PrintToString(pattern) << " on " << testing::PrintToString(text);
        }
    }
    EXPECT_GT(accepted, 8000);
}

}  // namespace
