// Expressions as they stand in programs of the older language.
#include <array>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "support/Utf8.h"
#include "translate/KxJsTranslator.h"

namespace {

/// What is no formula: notes of authors behind a function's name. A call's argument is an
/// expression, and no two names stand in one without an operator between them.
constexpr std::array kNoFormulas{
    "occurs (Aur\u00c3\u00a9lien Dellieux)",
    "occurs (Nathan Brown)",
    "occurs (Pedro Guti\u00c3\u00a9rrez M.)",
    "right (Ryan Harris)",
};

TEST(RealFormulas, AllButNotesOfAuthorsAreFormulas) {
    std::istringstream formulas(kx::test::readBytes(KXJS_REAL_FORMULAS));
    KxJsTranslator const translator;
    std::size_t count = 0;
    std::vector<std::string> refused;
    for (std::string line; std::getline(formulas, line); ++count) {
        std::string const formula = line.substr(line.find('\t') + 1);
        auto const translation = translator.translate(kx::test::toUtf16(formula));
        if (translation.findings.empty() || translation.findings[0].code != u"SYNTAX") continue;
        refused.push_back(formula);
    }
    EXPECT_EQ(count, 1688U);
    EXPECT_EQ(refused, std::vector<std::string>(kNoFormulas.begin(), kNoFormulas.end()));
}

}  // namespace
