// Columns of more records than a host evaluates in one go.
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "ColumnsFixture.h"

namespace {

constexpr std::size_t kLong = 150'000;

class LongColumns : public ColumnsFixture {
  protected:
    LongColumns() {
        for (std::size_t i = 0; i < kLong; ++i) {
            prices_[i] = static_cast<double>(i) + 0.25;
            counts_[i] = static_cast<std::int32_t>(i % 11);
            truths_[i] = i % 3 == 0;
        }
        columns.bind(u"PRICE", prices_.data());
        columns.bind(u"COUNT", counts_.data());
        columns.bind(u"TRUTH", truths_.data());
    }

    void compile(std::u16string const& source) {
        std::u16string error;
        ASSERT_TRUE(columns.compile(source, error));
    }
    double expected(std::size_t i) const { return truths_[i] ? prices_[i] * counts_[i] : -1; }

    std::vector<double> prices_ = std::vector<double>(kLong);
    std::vector<std::int32_t> counts_ = std::vector<std::int32_t>(kLong);
    std::array<bool, kLong> truths_{};
};

TEST_F(LongColumns, giveNumbersAndTruthValues) {
    compile(u"TRUTH ? PRICE*COUNT : -1");
    std::vector<double> numbers(kLong);
    EXPECT_EQ(columns.evaluate(kLong, numbers.data()).records, kLong);
    std::array<bool, kLong> truths{};
    EXPECT_EQ(columns.evaluate(kLong, truths.data()).records, kLong);
    std::size_t mistakes = 0;
    for (std::size_t i = 0; i < kLong; ++i) {
        if (numbers[i] != expected(i) || truths[i] != (expected(i) != 0)) ++mistakes;
    }
    EXPECT_EQ(mistakes, 0U);
}

TEST_F(LongColumns, giveAndTakeTexts) {
    Texts names(kLong);
    for (std::size_t i = 0; i < kLong; ++i) names[i] = std::u16string(i % 5, u'x');
    columns.bind(u"NAME", names.data());
    auto const outcome = texts(u"NAME+NAME", kLong);
    EXPECT_EQ(outcome.records, kLong);
    std::size_t mistakes = 0;
    for (std::size_t i = 0; i < kLong; ++i) {
        if (results[i] != names[i] + names[i]) ++mistakes;
    }
    EXPECT_EQ(mistakes, 0U);
}

TEST_F(LongColumns, failRecordByRecord) {
    compile(u"COUNT == 3 ? nowhere : PRICE");
    std::vector<double> numbers(kLong);
    auto const outcome = columns.evaluate(kLong, numbers.data());
    EXPECT_EQ(outcome.records, kLong);
    std::vector<std::size_t> failing;
    std::vector<std::size_t> expected;
    for (auto const& failure : outcome.failures) failing.push_back(failure.record);
    for (std::size_t i = 3; i < kLong; i += 11) expected.push_back(i);
    EXPECT_TRUE(failing == expected);
}

// Some take so long that the records are interrupted, to tell how far they are.
TEST_F(LongColumns, runInTheirOrderOnceEach) {
    std::u16string const counting =
        u"if (typeof done === 'undefined') done = 0;"
        u"if (done % 40000 === 1000) { const end = Date.now() + 30; while (Date.now() < end); }"
        u"done++ * 1e6 + PRICE";
    compile(counting);
    std::vector<double> numbers(kLong);
    for (bool const hasProgress : {false, true}) {
        host.run(u"done = 0");
        std::vector<std::size_t> seen;
        if (hasProgress) {
            columns.setProgress([&seen](std::size_t records) {
                seen.push_back(records);
                return true;
            });
        }
        EXPECT_EQ(columns.evaluate(kLong, numbers.data()).records, kLong);
        std::size_t mistakes = 0;
        for (std::size_t i = 0; i < kLong; ++i) {
            if (numbers[i] != static_cast<double>(i) * 1e6 + prices_[i]) ++mistakes;
        }
        EXPECT_EQ(mistakes, 0U) << hasProgress;
        EXPECT_EQ(seen.size() > 3, hasProgress);
    }
}

// What the last record saw is what the variables have.
TEST_F(LongColumns, leaveTheLastRecordInTheVariables) {
    compile(u"PRICE+1");
    std::vector<double> numbers(kLong);
    EXPECT_EQ(columns.evaluate(kLong, numbers.data()).records, kLong);
    EXPECT_EQ(host.eval(u"PRICE"), u"149999.25");
}

}  // namespace
