// What ends an evaluation of columns, and what the progress function may do meanwhile.
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "ColumnsFixture.h"

namespace {

using EndOfColumns = ColumnsFixture;

TEST_F(EndOfColumns, stopWhenTheProgressFunctionSaysSo) {
    std::vector<double> const prices(kMany, 1);
    columns.bind(u"PRICE", prices.data());
    std::vector<std::size_t> seen;
    columns.setProgress([&](std::size_t records) {
        seen.push_back(records);
        return records < 1000;
    });
    auto const outcome = texts(u"PRICE*2", kMany);
    EXPECT_EQ(outcome.error, u"The evaluation was stopped");
    ASSERT_GT(seen.size(), 1U);
    EXPECT_EQ(outcome.records, seen.back());
    EXPECT_LT(outcome.records, kMany);
    EXPECT_EQ(results[outcome.records - 1], u"2");
    columns.setProgress([](std::size_t) -> bool { throw std::runtime_error("enough"); });
    EXPECT_THROW(columns.evaluate(kMany, results.data()), std::runtime_error);
    columns.setProgress([this](std::size_t) {
        host.host.reset();
        return true;
    });
    EXPECT_NE(columns.evaluate(kMany, results.data()).error, u"");
    columns.setProgress({});
    EXPECT_EQ(texts(u"PRICE*2", kMany).records, kMany);
}

TEST_F(EndOfColumns, endAtTheHostsTimeLimit) {
    std::vector<std::u16string> const texts_(300000, u"some text");
    std::vector<double> prices(texts_.size(), 1);
    prices[2500] = 0;
    columns.bind(u"PRICE", prices.data());
    host.host.setTimeLimit(std::chrono::milliseconds(50));
    std::u16string const ended =
        u"The script was ended: it ran longer than its time limit of 50 ms";
    // One record that never ends, and a million that take too long together.
    EXPECT_EQ(texts(u"while(PRICE==0);1", kMany).error, ended);
    columns.bind(u"NAME", texts_.data());
    EXPECT_EQ(texts(u"CHRTRAN(NAME+NAME,'abcdefgh','12345678').length", texts_.size()).error,
              ended);
    host.host.setTimeLimit(std::chrono::milliseconds(0));
    EXPECT_EQ(texts(u"PRICE+1", kMany).error, u"");
}

TEST_F(EndOfColumns, endWhereTheirEndIsAskedForDuringAScriptOfTheCallback) {
    std::vector<double> const prices(kMany, 1);
    columns.bind(u"PRICE", prices.data());
    columns.setProgress([&](std::size_t) {
        host.host.terminate();
        std::u16string error;
        (void)host.host.evaluate(u"1", error);
        return true;
    });
    EXPECT_EQ(texts(u"PRICE+1", kMany).error, u"The script was ended: it was terminated");
}

TEST_F(EndOfColumns, tellTheTimeLimitUnderWhichTheyBegan) {
    std::vector<double> prices(kMany, 1);
    prices[2500] = 0;
    columns.bind(u"PRICE", prices.data());
    host.host.setTimeLimit(std::chrono::milliseconds(50));
    columns.setProgress([&](std::size_t) {
        host.host.setTimeLimit(std::chrono::milliseconds(0));
        return true;
    });
    EXPECT_EQ(texts(u"while(PRICE==0);1", kMany).error,
              u"The script was ended: it ran longer than its time limit of 50 ms");
}

TEST_F(EndOfColumns, endWhenTheHostIsTerminated) {
    std::vector<double> const prices(kMany, 1);
    columns.bind(u"PRICE", prices.data());
    std::atomic<bool> isOver = false;
    std::thread other([&] {
        while (!isOver) {
            host.host.terminate();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    auto const outcome = texts(u"while(true);", kMany);
    isOver = true;
    other.join();
    EXPECT_EQ(outcome.error, u"The script was ended: it was terminated");
    EXPECT_EQ(outcome.records, 0U);
    EXPECT_EQ(texts(u"PRICE+1", kMany).records, kMany);
}

TEST_F(EndOfColumns, endAtTheMemoryLimit) {
    host.host.setMemoryLimit(std::size_t{64} << 20);
    std::vector<double> const prices(kMany, 1);
    columns.bind(u"PRICE", prices.data());
    host.eval(u"kept=[];1");
    auto const outcome = texts(u"for(var i=0;i<1e5;i++)kept.push({i});PRICE", kMany);
    EXPECT_EQ(outcome.error,
              u"The script was ended: it needed more than the memory limit of 64 MiB");
    EXPECT_LT(outcome.records, kMany);
}

TEST_F(EndOfColumns, giveLongTextsWithinTheMemoryLimit) {
    host.host.setMemoryLimit(std::size_t{64} << 20);
    std::vector<double> const counts(100, 1e6);
    columns.bind(u"COUNT", counts.data());
    auto const outcome = texts(u"'x'.repeat(COUNT)", counts.size());
    EXPECT_EQ(outcome.error, u"");
    EXPECT_EQ(results[99].size(), 1000000U);
}

TEST_F(EndOfColumns, seeAVariableThatIsSetInProgressFromTheNextRecordOn) {
    changeInProgress(u"A*K", u"2", [&] { host.bind(u"K", 2.0); });
    changeInProgress(u"var a=A;a*K", u"2", [&] { host.bind(u"K", 2.0); });
    changeInProgress(u"A+(K===1?'':K)", u"1text",
                     [&] { host.bind(u"K", std::u16string(u"text")); });
}

TEST_F(EndOfColumns, seeWhatAScriptInProgressHasDoneFromTheNextRecordOn) {
    changeInProgress(u"IIF(A>0,A,0)", u"7", [&] { host.run(u"IIF=function(){return 7}"); });
    changeInProgress(u"A+0", u"42", [&] { host.run(u"A___A={ouraccessor:42}"); });
}

TEST_F(EndOfColumns, seeWhatOtherColumnsInProgressHaveDone) {
    changeInProgress(u"IIF(A>0,A*K,0)", u"5", [&] {
        KxJsColumns others(host.host);
        std::u16string error;
        ASSERT_TRUE(others.compile(u"IIF=function(){return 5}", error));
        std::u16string result;
        others.evaluate(1, &result);
    });
}

TEST_F(EndOfColumns, areDoneWhenTheProgressFunctionStopsAfterTheLastRecord) {
    std::vector<double> const prices(kMany, 1);
    columns.bind(u"PRICE", prices.data());
    columns.setProgress([](std::size_t records) { return records < kMany; });
    auto outcome = texts(u"PRICE*2", kMany);
    EXPECT_EQ(outcome.records, kMany);
    EXPECT_EQ(outcome.error, u"");
    columns.setProgress([this](std::size_t records) {
        if (records == kMany) host.host.reset();
        return true;
    });
    outcome = texts(u"PRICE*3", kMany);
    EXPECT_EQ(outcome.records, kMany);
    EXPECT_EQ(outcome.error, u"");
    EXPECT_EQ(results.back(), u"3");
}

TEST_F(EndOfColumns, refuseToBeChangedWhileTheyAreEvaluated) {
    std::vector<double> const values(kMany, 2);
    columns.bind(u"A", values.data());
    std::size_t refusals = 0;
    columns.setProgress([&](std::size_t) {
        std::u16string error;
        EXPECT_FALSE(columns.compile(u"A*3", error));
        EXPECT_EQ(error, u"These columns are being evaluated");
        EXPECT_THROW(columns.bind(u"B", values.data()), std::logic_error);
        EXPECT_THROW(columns.setProgress({}), std::logic_error);
        double result = 0;
        EXPECT_EQ(columns.evaluate(1, &result).error, u"These columns are being evaluated");
        ++refusals;
        return true;
    });
    auto const outcome = texts(u"A+1", kMany);
    EXPECT_EQ(outcome.records, kMany);
    EXPECT_EQ(results.back(), u"3");
    EXPECT_GT(refusals, 0U);
    columns.setProgress({});
    EXPECT_EQ(texts(u"A*3", 1).records, 1U);
}

}  // namespace
