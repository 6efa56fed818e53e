// What the check says of formulas, by a table.
#include <array>
#include <gtest/gtest.h>
#include <sstream>

#include "support/Utf8.h"
#include "translate/KxJsTranslator.h"

namespace {

constexpr std::array<char const*, 6> kVerdicts{"same",    "differs", "unknown",
                                               "changed", "fails",   "not a formula"};

std::string described(KxJsTranslator::Check const& check) {
    std::string text = kVerdicts[static_cast<std::size_t>(check.verdict)];
    text += '\t';
    for (auto const& damage : check.damages) {
        if (text.back() != '\t') text += ' ';
        text += kx::test::toUtf8(damage.code);
    }
    return text + '\t' + kx::test::toUtf8(check.rewrite);
}

TEST(Check, SaysWhatTheTableSays) {
    std::istringstream table(kx::test::readBytes(KXJS_TEST_DATA "/check.tsv"));
    std::size_t count = 0;
    KxJsTranslator const translator;
    for (std::string line; std::getline(table, line);) {
        if (line.starts_with("# ")) continue;
        std::size_t const tab = line.find('\t');
        ASSERT_NE(tab, std::string::npos) << line;
        auto const check = translator.check(kx::test::toUtf16(line.substr(0, tab)));
        EXPECT_EQ(described(check), line.substr(tab + 1))
            << line.substr(0, tab) << "\n=> " << kx::test::toUtf8(check.javaScript);
        ++count;
    }
    EXPECT_GT(count, 80U);
}

}  // namespace
