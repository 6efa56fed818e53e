#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "columns/KxJsColumns.h"
#include "host/ScriptHost.h"

namespace {

using Texts = std::vector<std::u16string>;

constexpr std::size_t kMany = 5000;  // more than are run in one go

/// Columns over a host of their own.
class Columns : public testing::Test {
  protected:
    KxJsColumns::Outcome texts(std::u16string const& source, std::size_t count) {
        results.assign(count, u"before");
        std::u16string error;
        EXPECT_TRUE(columns.compile(source, error));
        EXPECT_EQ(error, u"");
        return columns.evaluate(count, results.data());
    }

    /// The error of record `record`, which is the only one that fails.
    static std::u16string onlyFailure(KxJsColumns::Outcome const& outcome, std::size_t record) {
        if (outcome.failures.size() != 1) return u"not one failure";
        if (outcome.failures[0].record != record) return u"another record";
        return outcome.failures[0].error.str();
    }

    /// Compiles `formula` over a column `name` of the numbers 1 to 5, runs `script`, evaluates, and
    /// compares with what the same gives one by one.
    static void compareWithOneByOne(std::u16string const& name, std::u16string const& formula,
                                    std::u16string const& script) {
        SCOPED_TRACE(testing::PrintToString(formula + u" / " + script));
        std::vector<double> const values = {1, 2, 3, 4, 5};
        ScriptHost other;
        KxJsColumns numbers(other.host);
        numbers.bind(name, values.data());
        std::u16string error;
        ASSERT_TRUE(numbers.compile(formula, error));
        if (!script.empty()) other.run(script);
        Texts inColumns(values.size());
        auto const outcome = numbers.evaluate(values.size(), inColumns.data());
        Texts errors(values.size());
        for (auto const& failure : outcome.failures) errors[failure.record] = failure.error;

        ScriptHost oneByOne;
        oneByOne.bind(name, 0.0);
        std::int32_t const index = oneByOne.parse(formula);
        if (!script.empty()) oneByOne.run(script);
        for (std::size_t i = 0; i < values.size(); ++i) {
            oneByOne.bind(name, values[i]);
            EXPECT_EQ((ScriptHost::Run{inColumns[i], errors[i]}), oneByOne.execute(index)) << i;
        }
    }

    /// Evaluates `formula`, which gives 1 where K and all of column A are 1, and has `change` done
    /// at the first call of whoever watches: every later record must be `then`.
    template <class Change>
    void changeInProgress(std::u16string const& formula, std::u16string const& then,
                          Change const& change) {
        std::vector<double> const values(kMany, 1);
        host.bind(u"K", 1.0);
        columns.bind(u"A", values.data());
        std::size_t changedAt = 0;
        columns.setProgress([&](std::size_t records) {
            if (changedAt == 0) {
                changedAt = records;
                change();
            }
            return true;
        });
        EXPECT_EQ(texts(formula, kMany).records, kMany);
        ASSERT_GT(changedAt, 0U);
        ASSERT_LT(changedAt, kMany - 1);
        Texts expected(changedAt, u"1");
        expected.resize(kMany, then);
        EXPECT_TRUE(results == expected) << "from " << changedAt;
    }

    ScriptHost host;
    KxJsColumns columns{host.host};
    Texts results;
};

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

TEST_F(Columns, noticeThatABuiltInFunctionWasReplaced) {
    std::vector<double> const prices = {1, 2, 3, 4, 5};
    columns.bind(u"PRICE", prices.data());
    texts(u"EVEN(PRICE)", 5);
    EXPECT_EQ(results[3], u"true");
    host.eval(u"EVEN=function(){return 'price '+PRICE;}");
    columns.evaluate(5, results.data());
    EXPECT_EQ(results[3], u"price 4");
}

TEST_F(Columns, giveWhatNamesThatScriptsHaveTakenGive) {
    host.eval(u"const PRICE=7;1");
    host.eval(u"Object.defineProperty(globalThis,'COST',{set(){},get(){return 9;}});1");
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    EXPECT_EQ(texts(u"PRICE*2", 4).failures.size(), 4U);
    columns.bind(u"COST", prices.data());
    columns.bind(u"Math", prices.data());
    std::u16string error;
    KxJsColumns others(host.host);
    others.bind(u"COST", prices.data());
    ASSERT_TRUE(others.compile(u"COST*2", error));
    others.evaluate(4, results.data());
    EXPECT_EQ(results, Texts(4, u"18"));
    KxJsColumns taken(host.host);
    taken.bind(u"Math", prices.data());
    ASSERT_TRUE(taken.compile(u"Math+1", error));
    taken.evaluate(4, results.data());
    EXPECT_EQ(results, (Texts{u"2", u"3", u"4", u"5"}));
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

TEST_F(Columns, areOutOfReachForScripts) {
    // Everything that could lead from a function to its caller, its caller's arguments, or a
    // typed array.
    host.eval(
        u"var seen='';"
        u"Math.floor=function f(x){"
        u"  try{seen+=f.caller===null?'':typeof f.caller.caller+' ';"
        u"      seen+=f.caller.caller.arguments.length;}catch(e){seen+=e.name;}"
        u"  Error.prepareStackTrace=function(e,sites){"
        u"    for(var s of sites){var g=s.getFunction();if(g&&g.arguments)"
        u"      for(var a of g.arguments)if(typeof a==='object')seen+=' reached ';}return '';};"
        u"  new Error().stack;return x;};"
        u"1");
    std::vector<double> const prices(100, 2.5);
    columns.bind(u"PRICE", prices.data());
    texts(u"Math.floor(PRICE)", 100);
    EXPECT_EQ(results[50], u"2.5");
    std::u16string const seen = host.eval(u"seen");
    EXPECT_EQ(seen.find(u"reached"), std::u16string::npos);
    EXPECT_EQ(prices, std::vector<double>(100, 2.5));
}

TEST_F(Columns, keepStateInGlobalsFromRecordToRecord) {
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    host.eval(u"sum=0");
    texts(u"sum+=PRICE", 4);
    EXPECT_EQ(results, (Texts{u"1", u"3", u"6", u"10"}));
    EXPECT_EQ(host.eval(u"sum"), u"10");
}

TEST_F(Columns, changeTheirNamesForOneRecordOnly) {
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    texts(u"var p=PRICE;PRICE=100;p", 4);
    EXPECT_EQ(results, (Texts{u"1", u"2", u"3", u"4"}));
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

TEST_F(Columns, stopWhenWhoeverWatchesSaysSo) {
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

TEST_F(Columns, endAtTheHostsTimeLimit) {
    std::vector<double> prices(kMany, 1);
    prices[2500] = 0;
    columns.bind(u"PRICE", prices.data());
    host.host.setTimeLimit(std::chrono::milliseconds(50));
    std::u16string const ended =
        u"The script was ended: it ran longer than its time limit of 50 ms";
    // One record that never ends, and a million that take too long together.
    EXPECT_EQ(texts(u"while(PRICE==0);1", kMany).error, ended);
    std::vector<std::u16string> const texts_(300000, u"some text");
    columns.bind(u"NAME", texts_.data());
    EXPECT_EQ(texts(u"CHRTRAN(NAME+NAME,'abcdefgh','12345678').length", texts_.size()).error,
              ended);
    host.host.setTimeLimit(std::chrono::milliseconds(0));
    EXPECT_EQ(texts(u"PRICE+1", kMany).error, u"");
}

TEST_F(Columns, endWhereTheirEndIsAskedForDuringAScriptOfTheCallback) {
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

TEST_F(Columns, tellTheTimeLimitUnderWhichTheyBegan) {
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

TEST_F(Columns, endWhenTheHostIsTerminated) {
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

TEST_F(Columns, endAtTheMemoryLimit) {
    host.host.setMemoryLimit(std::size_t{64} << 20);
    std::vector<double> const prices(kMany, 1);
    columns.bind(u"PRICE", prices.data());
    host.eval(u"kept=[];1");
    auto const outcome = texts(u"for(var i=0;i<1e5;i++)kept.push({i});PRICE", kMany);
    EXPECT_EQ(outcome.error,
              u"The script was ended: it needed more than the memory limit of 64 MiB");
    EXPECT_LT(outcome.records, kMany);
}

TEST_F(Columns, giveLongTextsWithinTheMemoryLimit) {
    host.host.setMemoryLimit(std::size_t{64} << 20);
    std::vector<double> const counts(200, 1e6);
    columns.bind(u"COUNT", counts.data());
    auto const outcome = texts(u"'x'.repeat(COUNT)", counts.size());
    EXPECT_EQ(outcome.error, u"");
    EXPECT_EQ(results[100].size(), 1000000U);
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

// Each would show where the formula is not run in its place.
TEST_F(Columns, giveWhatOneByOneGivesWhereBuiltInsWereReplaced) {
    struct Replacement {
        char16_t const* script;
        char16_t const* formula;
    };
    for (auto const& [script, formula] : {
             Replacement{u"let eval=function(c){return !c};", u"IIF(A>1,'y','n')"},
             Replacement{u"const parseInt=function(){return A};", u"parseInt(A)"},
             Replacement{u"let Math={floor:function(){return A}};", u"Math.floor(A)"},
             Replacement{u"EVEN=function(n){return A>2};", u"ODD(A)"},
             Replacement{u"Object.defineProperty(globalThis,'EVAL_COUNT',{value:0,writable:true});"
                         u"let ROUND=function(n){return ++EVAL_COUNT};",
                         u"ROUND(A)"},
         }) {
        ScriptHost replaced;
        replaced.run(script);
        std::vector<double> const values = {0, 1, 2, 3, 4, 5};
        KxJsColumns replacedColumns(replaced.host);
        replacedColumns.bind(u"A", values.data());
        std::u16string error;
        ASSERT_TRUE(replacedColumns.compile(formula, error));
        Texts inColumns(values.size());
        replacedColumns.evaluate(values.size(), inColumns.data());

        ScriptHost oneByOne;
        oneByOne.run(script);
        oneByOne.bind(u"A", 0.0);
        std::int32_t const index = oneByOne.parse(formula);
        for (std::size_t i = 0; i < values.size(); ++i) {
            oneByOne.bind(u"A", values[i]);
            EXPECT_EQ(inColumns[i], oneByOne.execute(index).result)
                << testing::PrintToString(std::u16string(formula)) << " " << i;
        }
    }
}

TEST_F(Columns, giveWhatOneByOneGivesWhereAKeyIsACarriersName) {
    std::vector<double> const values = {1, 2, 3, 4};
    columns.bind(u"A", values.data());
    columns.bind(u"A___A", values.data());
    texts(u"A+A___A", values.size());
    ScriptHost oneByOne;
    oneByOne.bind(u"A", 1.0);
    oneByOne.bind(u"A___A", 1.0);
    std::int32_t const index = oneByOne.parse(u"A+A___A");
    for (std::size_t i = 0; i < values.size(); ++i) {
        oneByOne.bind(u"A", values[i]);
        oneByOne.bind(u"A___A", values[i]);
        EXPECT_EQ(results[i], oneByOne.execute(index).result) << i;
    }
}

// Behind a point stands a member, but not behind each.
TEST_F(Columns, giveWhatOneByOneGivesWhereTheyAreCalledLikeMembers) {
    for (char16_t const* formula :
         {u"Math.max(...String(E))", u"Math.max(...E)", u"Math.abs?.(E)", u"Math.abs?. (E)",
          u"Math.E*E", u"Math\n.E*E", u"1..E+E", u"''.concat(...E+'')", u"Math?.[E]",
          u"Math.abs?.(-E)", u"017.E+/'/+E+/'/", u"E>2?.5:E", u"Math.max(E,E?.length)"}) {
        compareWithOneByOne(u"E", formula, u"");
    }
    compareWithOneByOne(u"left", u"'abcdef'.left(left)+''.concat(...left+'x')", u"");
    compareWithOneByOne(u"length", u"'abc'.length+length+Math.abs?.(length)", u"");
    compareWithOneByOne(u"undefined", u"undefined+1", u"");
    compareWithOneByOne(u"arguments", u"arguments+1", u"");
    compareWithOneByOne(u"NaN", u"NaN+1", u"");
    compareWithOneByOne(u"IIF", u"IIF+1", u"");
    compareWithOneByOne(u"Math", u"Math+1", u"");
}

TEST_F(Columns, giveWhatOneByOneGivesWhereCarriersWereReplaced) {
    for (char16_t const* script :
         {u"A___A={ouraccessor:42}",
          u"let A___A={ouraccessor:42}",
          u"A___A={get ouraccessor(){return 43}}",
          u"A___A=globalThis",
          u"A___A=new Proxy(A___A,{get(){return 44}})",
          u"A___A=new A___A.constructor()",
          u"A___A=Object.create(A___A)",
          u"A___A=[A___A]",
          u"A___A=5",
          u"delete A___A",
          u"Object.defineProperty(A___A,'ouraccessor',{value:45})",
          u"Object.defineProperty(A___A,'ouraccessor',{get(){return 46}})",
          u"delete A___A.ouraccessor;A___A.ouraccessor=47",
          u"Object.setPrototypeOf(A___A,{ouraccessor:48})",
          u"A___A.ouraccessor=49",
          u"Object.defineProperty(globalThis,'A___A',{get(){return {ouraccessor:50}}})",
          u"Object.freeze(A___A)",
          u"Object.freeze(globalThis)",
          u"let A=51",
          u"const A=52"}) {
        compareWithOneByOne(u"A", u"A*2", script);
    }
}

TEST_F(Columns, giveWhatOneByOneGivesWhereTwoCarriersWereExchanged) {
    std::vector<double> const first = {1, 2, 3, 4, 5};
    std::vector<double> const second = {10, 20, 30, 40, 50};
    columns.bind(u"A", first.data());
    columns.bind(u"B", second.data());
    texts(u"A-B", 5);
    host.run(u"var c=A___A;A___A=B___B;B___B=c");
    columns.evaluate(5, results.data());
    EXPECT_EQ(results, (Texts{u"9", u"18", u"27", u"36", u"45"}));
}

TEST_F(Columns, giveWhatOneByOneGivesWhereACarriersNameWasDeclaredBefore) {
    host.run(u"let A___A={ouraccessor:42}");
    std::vector<double> const values = {1, 2, 3, 4, 5};
    columns.bind(u"A", values.data());
    texts(u"A*2", 5);
    EXPECT_EQ(results, Texts(5, u"84"));
}

TEST_F(Columns, seeAVariableThatIsSetInProgressFromTheNextRecordOn) {
    changeInProgress(u"A*K", u"2", [&] { host.bind(u"K", 2.0); });
    changeInProgress(u"var a=A;a*K", u"2", [&] { host.bind(u"K", 2.0); });
    changeInProgress(u"A+(K===1?'':K)", u"1text",
                     [&] { host.bind(u"K", std::u16string(u"text")); });
}

TEST_F(Columns, seeWhatAScriptInProgressHasDoneFromTheNextRecordOn) {
    changeInProgress(u"IIF(A>0,A,0)", u"7", [&] { host.run(u"IIF=function(){return 7}"); });
    changeInProgress(u"A+0", u"42", [&] { host.run(u"A___A={ouraccessor:42}"); });
}

TEST_F(Columns, seeWhatOtherColumnsInProgressHaveDone) {
    changeInProgress(u"IIF(A>0,A*K,0)", u"5", [&] {
        KxJsColumns others(host.host);
        std::u16string error;
        ASSERT_TRUE(others.compile(u"IIF=function(){return 5}", error));
        std::u16string result;
        others.evaluate(1, &result);
    });
}

TEST_F(Columns, seeWhatTheTextsOfEarlierRecordsHaveDone) {
    std::vector<std::u16string> sources(kMany);
    sources[100] = u"IIF=function(c){return c?8:9}";
    sources[3000] = u"A___A={ouraccessor:-1}";
    std::vector<double> const numbers(kMany, 1);
    std::u16string const formula = u"IIF(SOURCE==''?A>0:SOURCE,1,2)";
    columns.bind(u"SOURCE", sources.data());
    columns.bind(u"A", numbers.data());
    texts(formula, kMany);
    Texts expected(kMany, u"8");
    std::fill_n(expected.begin(), 101, u"1");
    EXPECT_TRUE(results == expected);
    texts(u"SOURCE==''?IIF(A>0,1,2):COND(SOURCE,'done')", kMany);
    Texts then(kMany, u"8");
    then[100] = then[3000] = u"done";
    std::fill(then.begin() + 3001, then.end(), u"9");
    EXPECT_TRUE(results == then);
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

TEST_F(Columns, areDoneWhenNobodyGoesOnAfterTheLastRecord) {
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

TEST_F(Columns, refuseToBeChangedWhileTheyAreEvaluated) {
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
