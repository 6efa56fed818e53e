#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include "ColumnsFixture.h"

namespace {

using Columns = ColumnsFixture;

TEST_F(Columns, ofEveryTypeGiveTheirValues) {
    std::vector<double> const numbers = {1.5, -0.25, 1e21};
    std::vector<std::int32_t> const counts = {1, -2, 3};
    std::array const truths = {true, false, true};
    std::vector<std::u16string> const names = {u"a", u"", u"c"};
    std::vector<std::u16string_view> const views = {u"x", u"y", u"z"};
    columns.bind(u"NUMBER", numbers.data());
    columns.bind(u"COUNT", counts.data());
    columns.bind(u"TRUTH", truths.data());
    columns.bind(u"NAME", names.data());
    columns.bind(u"VIEW", views.data());
    auto const outcome = texts(u"NUMBER+' '+COUNT+' '+TRUTH+' '+NAME+' '+VIEW", 3);
    EXPECT_EQ(outcome.records, 3U);
    EXPECT_EQ(outcome.error, u"");
    EXPECT_TRUE(outcome.failures.empty());
    EXPECT_EQ(results, (Texts{u"1.5 1 true a x", u"-0.25 -2 false  y", u"1e+21 3 true c z"}));
}

TEST_F(Columns, giveNumbersByTheRulesOfArithmetic) {
    std::vector<std::u16string> const sources = {u"2",           u"true",   u"'1e3'", u"null",
                                                 u"undefined",   u"'x'",    u"-0",    u"''",
                                                 u"Number('z')", u"throw 1"};
    columns.bind(u"SOURCE", sources.data());
    std::u16string error;
    // Evaluated as an expression's text, and by a statement.
    for (char16_t const* source : {u"IIF(SOURCE,0,0),eval(SOURCE)", u"var x=SOURCE;eval(x)"}) {
        ASSERT_TRUE(columns.compile(source, error));
        std::array<double, 10> numbers{};
        auto const outcome = columns.evaluate(numbers.size(), numbers.data());
        EXPECT_EQ(numbers[0], 2);
        EXPECT_EQ(numbers[1], 1);
        EXPECT_EQ(numbers[2], 1000);
        EXPECT_EQ(numbers[3], 0);
        EXPECT_TRUE(std::isnan(numbers[4]));
        EXPECT_TRUE(std::isnan(numbers[5]));
        EXPECT_TRUE(std::signbit(numbers[6]));
        EXPECT_EQ(numbers[7], 0);
        EXPECT_TRUE(std::isnan(numbers[9]));
        ASSERT_EQ(outcome.failures.size(), 1U);
        EXPECT_EQ(outcome.failures[0].record, 9U);
    }
}

TEST_F(Columns, giveNumbersAndTruthsOfExpressions) {
    std::vector<std::int32_t> counts(kMany);
    for (std::size_t i = 0; i < kMany; ++i) counts[i] = static_cast<std::int32_t>(i);
    columns.bind(u"COUNT", counts.data());
    std::u16string error;
    ASSERT_TRUE(columns.compile(u"IIF(COUNT%2==0,COUNT,String(COUNT/2))", error));
    std::vector<double> numbers(kMany, -1);
    EXPECT_EQ(columns.evaluate(kMany, numbers.data()).records, kMany);
    std::array<bool, kMany> truths{};
    EXPECT_EQ(columns.evaluate(kMany, truths.data()).records, kMany);
    for (std::size_t i = 0; i < kMany; ++i) {
        EXPECT_EQ(numbers[i], static_cast<double>(i) / (i % 2 == 0 ? 1 : 2));
        EXPECT_EQ(truths[i], i != 0);
    }
}

TEST_F(Columns, reportFailingRecordsAndGoOn) {
    std::vector<std::u16string> texts_(kMany, u"abc");
    texts_[0] = texts_[777] = texts_[kMany - 1] = u"missing+1";
    columns.bind(u"SOURCE", texts_.data());
    std::u16string const source = u"(SOURCE=='abc')?\n'fine':\nIIF(SOURCE,1,2)";
    auto const outcome = texts(source, kMany);
    EXPECT_EQ(outcome.records, kMany);
    ASSERT_EQ(outcome.failures.size(), 3U);
    std::vector<std::size_t> const records = {0, 777, kMany - 1};
    host.bind(u"SOURCE", std::u16string(u"missing+1"));
    auto const alone = host.run(source);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(outcome.failures[i].record, records[i]);
        EXPECT_EQ(outcome.failures[i].error, alone.error);
        EXPECT_EQ(outcome.failures[i].message, u"ReferenceError: missing is not defined");
        EXPECT_EQ(outcome.failures[i].line, 3);
        EXPECT_EQ(outcome.failures[i].column, 1);
        EXPECT_EQ(outcome.failures[i].endColumn, 4);  // the call that led there
        EXPECT_EQ(results[records[i]], u"");
    }
    EXPECT_EQ(results[1], u"fine");
    EXPECT_EQ(results[kMany - 2], u"fine");
}

TEST_F(Columns, giveTheSameTextsJoined) {
    std::vector<double> numbers(kMany);
    std::iota(numbers.begin(), numbers.end(), 0.0);
    numbers[3] = numbers[kMany - 2] = std::nan("");
    columns.bind(u"NUMBER", numbers.data());
    for (std::u16string const source :
         {u"NUMBER", u"NUMBER%7==1?'':'text '+NUMBER", u"NUMBER%1000==5?missing:NUMBER>9",
          u"NUMBER%2?null:undefined", u"NUMBER==7?{toString(){throw 1}}:'x'"}) {
        auto const outcome = texts(source, kMany);
        KxJsColumns::JoinedTexts joined;
        joined.add(u"before");
        auto const again = columns.evaluate(kMany, joined);
        ASSERT_EQ(joined.size(), kMany);
        for (std::size_t i = 0; i < kMany; ++i) ASSERT_EQ(joined[i], results[i]) << i;
        EXPECT_EQ(again.records, kMany);
        ASSERT_EQ(again.failures.size(), outcome.failures.size());
        for (std::size_t i = 0; i < again.failures.size(); ++i) {
            EXPECT_EQ(again.failures[i].record, outcome.failures[i].record);
            EXPECT_EQ(again.failures[i].error, outcome.failures[i].error);
        }
    }
}

TEST_F(Columns, giveAsManyJoinedTextsAsRecordsWereEvaluated) {
    std::vector<double> const numbers(kMany, 1);
    columns.bind(u"NUMBER", numbers.data());
    std::u16string error;
    ASSERT_TRUE(columns.compile(u"'n'+NUMBER", error));
    columns.setProgress([](std::size_t) { return false; });
    KxJsColumns::JoinedTexts joined;
    auto const outcome = columns.evaluate(kMany, joined);
    EXPECT_LT(outcome.records, kMany);
    EXPECT_EQ(joined.size(), outcome.records);
    EXPECT_EQ(joined.data.size(), 2 * outcome.records);
    host.host.reset();
    EXPECT_NE(columns.evaluate(kMany, joined).error, u"");
    EXPECT_EQ(joined.size(), 0U);
    EXPECT_EQ(joined.data, u"");
}

TEST_F(Columns, keepAResultThatIsNotANumber) {
    std::vector<double> const numbers = {1, std::nan(""), 3, 4};
    columns.bind(u"NUMBER", numbers.data());
    auto const outcome = texts(u"NUMBER*2", 4);
    EXPECT_EQ(onlyFailure(outcome, 1), u"Not A Number");
    EXPECT_EQ(outcome.failures.at(0).message, u"Not A Number");
    EXPECT_EQ(outcome.failures.at(0).line, 0);
    EXPECT_EQ(results, (Texts{u"2", u"NaN", u"6", u"8"}));
}

TEST_F(Columns, seeAsMuchOfATextAsVariablesShow) {
    std::vector<std::u16string> const names = {std::u16string(300, u'x'),
                                               std::u16string(u"ab\0c", 4), u"d", u"e"};
    columns.bind(u"NAME", names.data());
    texts(u"NAME.length", 4);
    EXPECT_EQ(results, (Texts{u"255", u"2", u"1", u"1"}));
}

TEST_F(Columns, seeTheHostsVariablesAndFunctions) {
    host.bind(u"RATE", 1.5);
    host.eval(u"function twice(){return PRICE*2;}");
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    texts(u"PRICE*RATE", 4);
    EXPECT_EQ(results, (Texts{u"1.5", u"3", u"4.5", u"6"}));
    host.bind(u"RATE", std::u16string(u"10"));
    std::array<double, 4> numbers{};
    columns.evaluate(4, numbers.data());
    EXPECT_EQ(numbers[3], 40);
    texts(u"twice()+0*PRICE", 4);
    EXPECT_EQ(results, (Texts{u"2", u"4", u"6", u"8"}));
}

TEST_F(Columns, areReadBlockByBlockWithoutNewCompilation) {
    std::u16string error;
    std::vector<double> block(100, 1);
    columns.bind(u"PRICE", block.data());
    ASSERT_TRUE(columns.compile(u"PRICE+1", error));
    std::array<double, 100> numbers{};
    for (int number = 1; number < 50; ++number) {
        double const value = number;
        std::vector<double> next(100, value);
        columns.bind(u"PRICE", next.data());
        columns.evaluate(100, numbers.data());
        EXPECT_EQ(numbers[50], value + 1);
    }
    std::vector<std::u16string> texts_(100, u"x");
    columns.bind(u"PRICE", texts_.data());
    results.resize(100);
    columns.evaluate(100, results.data());
    EXPECT_EQ(results[50], u"x1");
}

TEST_F(Columns, keepStateInGlobalsFromRecordToRecord) {
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    host.eval(u"sum=0");
    texts(u"sum+=PRICE", 4);
    EXPECT_EQ(results, (Texts{u"1", u"3", u"6", u"10"}));
    EXPECT_EQ(host.eval(u"sum"), u"10");
}

TEST_F(Columns, leaveTheHostWithTheLastRecord) {
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    texts(u"PRICE*2", 4);
    EXPECT_EQ(host.eval(u"PRICE"), u"4");
}

TEST_F(Columns, sayWhyAFormulaDoesNotCompile) {
    std::vector<double> const prices = {1};
    columns.bind(u"PRICE", prices.data());
    std::u16string error;
    EXPECT_FALSE(columns.compile(u"PRICE +* 2", error));
    host.bind(u"PRICE", 0.0);
    host.parse(u"PRICE +* 2");
    EXPECT_EQ(error, host.parseError);
    EXPECT_EQ(columns.evaluate(1, results.data()).error,
              u"No formula is compiled for these columns, or the script host was reset since");
    columns.bind(u" ", prices.data());
    EXPECT_FALSE(columns.compile(u"1", error));
    EXPECT_EQ(error, u"A column cannot have the name \" \"");
}

TEST_F(Columns, haveToBeCompiledAgainAfterAReset) {
    std::vector<double> const prices = {1, 2};
    columns.bind(u"PRICE", prices.data());
    texts(u"PRICE*2", 2);
    host.host.reset();
    EXPECT_EQ(columns.evaluate(2, results.data()).error,
              u"No formula is compiled for these columns, or the script host was reset since");
    texts(u"PRICE*2", 2);
    EXPECT_EQ(results, (Texts{u"2", u"4"}));
}

TEST_F(Columns, doNotTakeAPlaceInTheHostsStore) {
    std::vector<double> const prices = {1};
    columns.bind(u"PRICE", prices.data());
    texts(u"PRICE*2", 1);
    EXPECT_EQ(host.parse(u"1"), 0);
}

TEST_F(Columns, ofNoRecordsGiveNothing) {
    columns.bind(u"PRICE", static_cast<double const*>(nullptr));
    auto const outcome = texts(u"PRICE*2", 0);
    EXPECT_EQ(outcome.records, 0U);
    EXPECT_EQ(outcome.error, u"");
}

TEST_F(Columns, workOnTheirHostsThreadOnly) {
    std::vector<double> const prices = {1, 2};
    columns.bind(u"PRICE", prices.data());
    texts(u"PRICE*2", 2);
    std::thread([&] {
        EXPECT_EQ(columns.evaluate(2, results.data()).error,
                  u"The script host belongs to another thread or to another engine isolate");
        std::u16string error;
        EXPECT_FALSE(columns.compile(u"PRICE", error));
    }).join();
}

TEST_F(Columns, runPromiseJobsOfARecordBeforeTheNext) {
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    host.eval(u"log='';1");
    texts(u"Promise.resolve().then(()=>log+=PRICE);log", 4);
    EXPECT_EQ(results, (Texts{u"", u"1", u"12", u"123"}));
}

TEST_F(Columns, shareTheTextsOfFailures) {
    std::vector<std::u16string> sources(kMany, u"missing");
    sources[1000] = u"other";
    columns.bind(u"SOURCE", sources.data());
    auto const failures = texts(u"IIF(SOURCE,1,2)", kMany).failures;
    ASSERT_EQ(failures.size(), kMany);
    EXPECT_EQ(failures[1000].message, u"ReferenceError: other is not defined");
    for (std::size_t const i : {std::size_t{0}, kMany - 1}) {
        EXPECT_EQ(failures[i].message, u"ReferenceError: missing is not defined");
        EXPECT_EQ(&failures[i].message.str(), &failures[1].message.str());
        EXPECT_EQ(&failures[i].error.str(), &failures[1].error.str());
    }
    auto const notNumbers = texts(u"Number(SOURCE)", kMany).failures;
    EXPECT_EQ(&notNumbers[1].error.str(), &notNumbers.back().message.str());
}

TEST_F(Columns, keepTheirFormulaWhenAnotherThreadCompiles) {
    double const value = 4;
    columns.bind(u"A", &value);
    texts(u"A+1", 1);
    std::u16string error;
    std::thread([&] { EXPECT_FALSE(columns.compile(u"A+2", error)); }).join();
    EXPECT_EQ(columns.evaluate(1, results.data()).records, 1U);
    EXPECT_EQ(results[0], u"5");
}

}  // namespace
