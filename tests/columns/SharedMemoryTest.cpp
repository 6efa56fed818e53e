// Columns in the memory that an isolated host has in common with its worker. In process the same
// columns lie in ordinary memory.
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <numeric>
#include <span>
#include <string>
#include <vector>

#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"
#include "support/HostKind.h"

namespace {

constexpr std::size_t kRecords = 100'000;  // several blocks
constexpr std::size_t kBytes = kRecords * 32;

KxJsParser makeSharingHost() {
    KxJsIsolation isolation = testIsolation();
    isolation.sharedMemory = kBytes;
    isolation.grace = KxJsIsolation().grace;  // a test waits for its end
    return areHostsIsolated() ? KxJsParser(isolation) : KxJsParser();
}

class SharedColumns : public testing::Test {
  protected:
    SharedColumns() {
        for (std::size_t i = 0; i < kRecords; ++i) {
            prices_[i] = static_cast<double>(i) + 0.5;
            counts_[i] = static_cast<std::int32_t>(i % 7);
        }
        columns_.bind(u"PRICE", prices_);
        columns_.bind(u"COUNT", counts_);
    }

    KxJsColumns::Outcome evaluate(std::u16string const& source, double* results) {
        std::u16string error;
        EXPECT_TRUE(columns_.compile(source, error));
        return columns_.evaluate(kRecords, results);
    }
    /// How many results are not those of PRICE*COUNT.
    std::size_t mistakes(double const* results) const {
        std::size_t number = 0;
        for (std::size_t i = 0; i < kRecords; ++i) {
            if (results[i] != prices_[i] * counts_[i]) ++number;
        }
        return number;
    }

    KxJsParser host_ = makeSharingHost();
    KxJsColumns columns_{host_};
    std::vector<double> own_ = std::vector<double>(kBytes / sizeof(double));
    std::span<std::byte> memory_ =
        areHostsIsolated() ? host_.sharedMemory() : std::as_writable_bytes(std::span(own_));
    double* prices_ = reinterpret_cast<double*>(memory_.data());
    double* results_ = prices_ + kRecords;
    std::int32_t* counts_ = reinterpret_cast<std::int32_t*>(results_ + kRecords);
};

TEST_F(SharedColumns, areReadAndWrittenInPlace) {
    // No record sees the result of the one before, unless both lie where the formula runs.
    prices_[0] = 0;
    columns_.bind(u"BEFORE", prices_);
    EXPECT_EQ(evaluate(u"BEFORE+1", prices_ + 1).error, u"");
    std::vector<double> expected(kRecords + 1);
    std::iota(expected.begin(), expected.end(), 0.0);
    EXPECT_TRUE(std::ranges::equal(expected, std::span(prices_, kRecords + 1)));
}

TEST_F(SharedColumns, areSeenAsTheyAre) {
    auto const outcome = evaluate(u"PRICE*COUNT", results_);
    EXPECT_EQ(outcome.error, u"");
    EXPECT_EQ(outcome.records, kRecords);
    EXPECT_EQ(mistakes(results_), 0U);
    // What changes is seen.
    prices_[kRecords - 1] = 2;
    counts_[kRecords - 1] = 3;
    columns_.evaluate(kRecords, results_);
    EXPECT_EQ(results_[kRecords - 1], 6);
    EXPECT_EQ(mistakes(results_), 0U);
}

TEST_F(SharedColumns, mixWithOthers) {
    std::vector<std::u16string> names(kRecords, u"x");
    names[5] = u"yy";
    std::vector<double> results(kRecords);
    columns_.bind(u"NAME", names.data());
    EXPECT_EQ(evaluate(u"PRICE*COUNT*NAME.length", results.data()).records, kRecords);
    EXPECT_EQ(results[5], prices_[5] * 10);
    results[5] = prices_[5] * 5;
    EXPECT_EQ(mistakes(results.data()), 0U);
    // These lie at the end of the memory.
    double* const last = reinterpret_cast<double*>(memory_.data() + memory_.size()) - 2;
    last[0] = 7;
    last[1] = 8;
    columns_.bind(u"PRICE", last);
    EXPECT_EQ(columns_.evaluate(2, results_).records, 2U);
    EXPECT_EQ(results_[0], 7 * counts_[0]);
    EXPECT_EQ(results_[1], 8 * counts_[1]);
}

TEST_F(SharedColumns, failRecordByRecord) {
    auto const outcome = evaluate(u"COUNT == 3 ? nowhere : PRICE*COUNT", results_);
    EXPECT_EQ(outcome.failures.size(), (kRecords + 3) / 7);
    EXPECT_TRUE(results_[3] != results_[3]);
    EXPECT_EQ(results_[4], prices_[4] * 4);
}

TEST_F(SharedColumns, outliveTheWorker) {
    if (!areHostsIsolated()) GTEST_SKIP() << "there is no worker in process";
    EXPECT_EQ(evaluate(u"PRICE*COUNT", results_).records, kRecords);
    host_.setTimeLimit(std::chrono::milliseconds(50));
    std::u16string error;
    host_.evaluate(u"[new Array(4e9)].flat()", error);
    ASSERT_NE(host_.lastFailure(), nullptr);
    ASSERT_EQ(host_.lastFailure()->kind, KxJsFailure::Kind::WORKER_ENDED);
    host_.setTimeLimit(std::chrono::milliseconds(0));
    EXPECT_EQ(mistakes(results_), 0U);
    prices_[0] = 5;
    counts_[0] = 5;
    EXPECT_EQ(columns_.evaluate(kRecords, results_).records, kRecords);
    EXPECT_EQ(results_[0], 25);
    EXPECT_EQ(mistakes(results_), 0U);
}

TEST(SharedMemory, isThereWhereItWasAskedForAlone) {
    EXPECT_TRUE(makeHost().sharedMemory().empty());
    EXPECT_EQ(makeSharingHost().sharedMemory().size(), areHostsIsolated() ? kBytes : 0);
}

}  // namespace
