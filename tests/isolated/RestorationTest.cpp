// What a host finds in place after its worker has ended.
#include <array>
#include <string>
#include <vector>

#include "columns/KxJsColumns.h"
#include "isolated/IsolatedFixture.h"

namespace {

TEST_F(Isolated, restoresVariablesAndScripts) {
    host_.addSetVariable(KxJsVariable(u"A", 5));
    host_.addSetVariable(KxJsVariable(u"T", u"text"));
    host_.addSetVariable(KxJsVariable(u"D", 1.25));
    host_.addSetVariable(KxJsVariable(u"B", true));
    std::vector<std::int32_t> scripts;
    for (char16_t const* source : {u"A", u"T", u"D", u"B", u"ROUND(D, 1)"}) {
        scripts.push_back(host_.parse(source, error_));
    }
    std::vector<std::u16string> const expected = {u"5", u"text", u"1.25", u"true", u"1.3"};
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < scripts.size(); ++i) {
            EXPECT_EQ(host_.execute(scripts[i], error_), expected[i]);
        }
        crash();
    }
}

TEST_F(Isolated, seesValuesThatWereSetWhileThereWasNoWorker) {
    host_.addSetVariable(KxJsVariable(u"A", 5));
    std::int32_t const script = host_.parse(u"A", error_);
    crash();
    host_.addSetVariable(KxJsVariable(u"A", 6));
    EXPECT_EQ(host_.execute(script, error_), u"6");
}

TEST_F(Isolated, bindsToARestoredScriptWhatWasBoundWhenItWasParsed) {
    std::int32_t const before = host_.parse(u"typeof A", error_);
    host_.addSetVariable(KxJsVariable(u"A", 5));
    std::int32_t const after = host_.parse(u"typeof A + typeof B", error_);
    host_.addSetVariable(KxJsVariable(u"B", 5));
    crash();
    EXPECT_EQ(host_.execute(before, error_), u"undefined");
    EXPECT_EQ(host_.execute(after, error_), u"numberundefined");
    // New formulas have the variables as well.
    EXPECT_EQ(evaluate(u"A+B"), u"10");
}

TEST(Isolation, givesTheBuiltInFunctionsToInitializedHostsAlone) {
    KxJsIsolation isolation = testIsolation();
    isolation.memoryLimit = std::uint64_t{256} << 20;
    KxJsParser host(isolation);
    std::u16string error;
    auto const typeBeforeAndAfterTheEndOfAWorker = [&] {
        std::u16string types = host.evaluate(u"typeof LEFT", error);
        host.evaluate(u"new Array(2**25).fill(1.5).length", error);
        EXPECT_EQ(host.lastFailure()->kind, KxJsFailure::Kind::WORKER_ENDED);
        return types + u", " + host.evaluate(u"typeof LEFT", error);
    };
    EXPECT_EQ(typeBeforeAndAfterTheEndOfAWorker(), u"undefined, undefined");
    host.initialize();
    EXPECT_EQ(typeBeforeAndAfterTheEndOfAWorker(), u"function, function");
    // Functions are installed over variables that were there before.
    KxJsParser other(isolation);
    KxJsParser inProcess;
    for (KxJsParser* const one : {&other, &inProcess}) {
        EXPECT_TRUE(one->addSetVariable(KxJsVariable(u"LEFT", 5)));
        one->initialize();
    }
    EXPECT_EQ(other.evaluate(u"var x = LEFT; typeof x", error),
              inProcess.evaluate(u"var x = LEFT; typeof x", error));
}

TEST_F(Isolated, forgetsItsFailureAtAReset) {
    crash();
    host_.reset();
    EXPECT_EQ(host_.lastFailure(), nullptr);
}

TEST_F(Isolated, losesGlobalsThatScriptsHaveMade) {
    EXPECT_EQ(evaluate(u"kept = 5"), u"5");
    crash();
    EXPECT_EQ(evaluate(u"typeof kept"), u"undefined");
}

TEST_F(Isolated, keepsItsLimits) {
    crash();
    host_.setTimeLimit(std::chrono::milliseconds(100));
    host_.setMemoryLimit(std::size_t{64} << 20);
    crash();
    EXPECT_EQ(evaluate(u"for(;;);"), u"");
    EXPECT_EQ(error_, u"The script was ended: it ran longer than its time limit of 100 ms");
    host_.setTimeLimit(std::chrono::milliseconds(0));
    EXPECT_EQ(evaluate(u"for (var a = [];;) a.push([1])"), u"");
    EXPECT_EQ(error_, u"The script was ended: it needed more than the memory limit of 64 MiB");
}

TEST_F(Isolated, restoresNothingThatWasReset) {
    host_.addSetVariable(KxJsVariable(u"A", 5));
    EXPECT_EQ(host_.parse(u"A", error_), 0);
    host_.reset();
    crash();
    EXPECT_EQ(evaluate(u"typeof A"), u"undefined");
    EXPECT_EQ(host_.parse(u"1+1", error_), 0);
    EXPECT_EQ(host_.execute(0, error_), u"2");
}

TEST_F(Isolated, numbersScriptsOnAfterTheEndOfAWorker) {
    EXPECT_EQ(host_.parse(u"1", error_), 0);
    crash();
    EXPECT_EQ(host_.parse(u"2", error_), 1);
    EXPECT_EQ(host_.execute(0, error_), u"1");
    EXPECT_EQ(host_.execute(1, error_), u"2");
}

TEST_F(Isolated, setsManyVariables) {
    std::u16string source = u"0";
    for (int i = 0; i < 100; ++i) {
        std::u16string const name = u"V" + std::u16string(1, static_cast<char16_t>(u'A' + i / 10)) +
                                    std::u16string(1, static_cast<char16_t>(u'A' + i % 10));
        host_.addSetVariable(KxJsVariable(name, i));
        source += u"+" + name;
    }
    std::int32_t const script = host_.parse(source, error_);
    EXPECT_EQ(host_.execute(script, error_), u"4950");
    crash();
    EXPECT_EQ(host_.execute(script, error_), u"4950");
}

TEST_F(Isolated, evaluatesColumnsAfterTheEndOfAWorker) {
    std::array<double, 5> const values = {1, 2, 3, 4, 5};
    std::array<double, 5> results{};
    KxJsColumns columns(host_);
    columns.bind(u"X", values.data());
    ASSERT_TRUE(columns.compile(u"X*2", error_));
    for (int round = 0; round < 2; ++round) {
        auto const outcome = columns.evaluate(values.size(), results.data());
        EXPECT_EQ(outcome.error, u"");
        EXPECT_EQ(outcome.records, values.size());
        EXPECT_EQ(results, (std::array<double, 5>{2, 4, 6, 8, 10}));
        crash();
    }
}

TEST_F(Isolated, tellsWhereColumnsHaveEndedAWorker) {
    std::array<double, 3> const values = {1, 2, 3};
    std::array<double, 3> results{};
    KxJsColumns columns(host_);
    columns.bind(u"X", values.data());
    host_.setTimeLimit(std::chrono::milliseconds(100));
    ASSERT_TRUE(columns.compile(u"X > 1 ? [new Array(4e9)].flat() : X", error_));
    auto const outcome = columns.evaluate(values.size(), results.data());
    EXPECT_EQ(outcome.error, u"The script was ended: it ran longer than its time limit of 100 ms");
    EXPECT_EQ(evaluate(u"1+1"), u"2");
}

}  // namespace
