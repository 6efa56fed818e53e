#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>

#include "native/Program.h"

namespace {

TEST(Evaluator, tellsTheTextOfEachNumberAfterOthers) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    auto const numbers = std::to_array<std::pair<double, std::u16string_view>>({
        {0.0, u"0"},
        {-0.0, u"0"},
        {1.0 / 3, u"0.3333333333333333"},
        {1.0 / 3, u"0.3333333333333333"},
        {-1.0 / 3, u"-0.3333333333333333"},
        {kNaN, u"NaN"},
        {kNaN, u"NaN"},
        {1e21, u"1e+21"},
        {0.0, u"0"},
    });
    kx::Evaluator evaluator;
    for (auto const& [number, text] : numbers) {
        EXPECT_EQ(evaluator.textOf(kx::Value::of(number)), text) << number;
    }
}

}  // namespace
