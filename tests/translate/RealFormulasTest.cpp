// Expressions as they stand in programs of the older language.
#include <gtest/gtest.h>
#include <sstream>

#include "support/Utf8.h"
#include "translate/KxJsTranslator.h"

namespace {

TEST(RealFormulas, HardlyAnyIsRefusedByTheGrammar) {
    std::istringstream formulas(kx::test::readBytes(KXJS_REAL_FORMULAS));
    KxJsTranslator const translator;
    std::size_t count = 0;
    std::string refused;
    std::size_t refusedCount = 0;
    for (std::string line; std::getline(formulas, line); ++count) {
        std::string const formula = line.substr(line.find('\t') + 1);
        auto const translation = translator.translate(kx::test::toUtf16(formula));
        if (translation.findings.empty() || translation.findings[0].code != u"SYNTAX") continue;
        ++refusedCount;
        refused += formula + ": " + kx::test::toUtf8(translation.findings[0].text) + '\n';
    }
    EXPECT_EQ(count, 1688U);
    EXPECT_LE(refusedCount * 100, count) << refused;
}

}  // namespace
