// What formulas of the language mean, by a table of formulas and results.
#include <gtest/gtest.h>
#include <sstream>

#include "Translated.h"
#include "support/Utf8.h"

namespace {

TEST(Language, FormulasGiveTheResultsOfTheTable) {
    Translated translated;
    std::istringstream table(kx::test::readBytes(KXJS_TEST_DATA "/language.tsv"));
    std::size_t count = 0;
    for (std::string line; std::getline(table, line);) {
        if (line.starts_with("# ")) continue;
        std::size_t const tab = line.find('\t');
        ASSERT_NE(tab, std::string::npos) << line;
        EXPECT_EQ(translated.run(line.substr(0, tab)), line.substr(tab + 1)) << line.substr(0, tab);
        ++count;
    }
    EXPECT_GT(count, 300U);
}

}  // namespace
