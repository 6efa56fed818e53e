#include <gtest/gtest.h>
#include <thread>

#include "NaiveConverter.h"
#include "RealFormulas.h"
#include "convert/Converter.h"

namespace {

std::vector<std::u16string> convertAll(std::vector<std::u16string> const& formulas) {
    std::vector<std::u16string> results;
    results.reserve(formulas.size());
    for (std::u16string const& formula : formulas) {
        results.push_back(Converter::_convert(formula.c_str()));
    }
    return results;
}

TEST(RealFormulas, ConvertAsTheNaiveConverterDoes) {
    NaiveConverter naive;
    std::vector<std::u16string> const formulas = readRealFormulas();
    ASSERT_EQ(formulas.size(), 1688U);
    std::size_t changed = 0;
    for (std::u16string const& formula : formulas) {
        std::u16string const result = Converter::_convert(formula.c_str());
        EXPECT_EQ(result, naive.convert(formula)) << "from " << testing::PrintToString(formula);
        if (result != formula) ++changed;
    }
    EXPECT_GT(changed, formulas.size() / 2);
}

TEST(RealFormulas, ConvertEquallyInEightThreadsAtOnce) {
    std::vector<std::u16string> const formulas = readRealFormulas();
    std::vector<std::vector<std::u16string>> results(8);
    std::vector<std::thread> threads;
    threads.reserve(results.size());
    for (auto& result : results) {
        threads.emplace_back([&result, &formulas] { result = convertAll(formulas); });
    }
    for (std::thread& thread : threads) thread.join();
    std::vector<std::u16string> const expected = convertAll(formulas);
    for (auto const& result : results) EXPECT_EQ(result, expected);
}

}  // namespace
