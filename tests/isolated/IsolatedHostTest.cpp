// What only isolated hosts do: they outlive their workers, tell of the sandbox, and refuse to be
// made where there is no worker.
#include <chrono>
#include <limits>
#include <set>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "isolated/IsolatedFixture.h"

namespace {

using namespace std::chrono_literals;

TEST_F(Isolated, tellsOfTheEndOfItsWorkerAndWorksOn) {
    crash();
    EXPECT_TRUE(error_.starts_with(u"The script was ended: its worker process ended (signal "));
    EXPECT_EQ(evaluate(u"IIF(1>2,'a','b')"), u"b");
    EXPECT_EQ(host_.lastFailure(), nullptr);
}

TEST_F(Isolated, namesTheTimeLimitWhereItHasEndedAWorker) {
    hang();
    EXPECT_EQ(error_,
              u"The script was ended: it ran longer than its time limit of 50 ms, and its worker "
              u"process was replaced");
    EXPECT_EQ(evaluate(u"1+1"), u"2");
}

TEST_F(Isolated, keepsItsStateWhereTheEngineLooks) {
    EXPECT_EQ(evaluate(u"kept = 5"), u"5");
    host_.setTimeLimit(100ms);
    EXPECT_EQ(evaluate(u"for(;;);"), u"");
    EXPECT_EQ(host_.lastFailure()->kind, KxJsFailure::Kind::LIMIT);
    EXPECT_EQ(evaluate(u"kept"), u"5");
}

TEST_F(Isolated, isTerminatedByAnotherThread) {
    for (char16_t const* source : {u"for(;;);", u"[new Array(4e9)].flat()"}) {
        std::thread other([this] {
            std::this_thread::sleep_for(100ms);
            host_.terminate();
        });
        EXPECT_EQ(evaluate(source), u"");
        EXPECT_TRUE(error_.starts_with(u"The script was ended: it was terminated"));
        other.join();
        EXPECT_EQ(evaluate(u"1+1"), u"2");
    }
}

TEST_F(Isolated, isNotTerminatedWhereNothingRuns) {
    host_.terminate();
    EXPECT_EQ(evaluate(u"1+1"), u"2");
}

TEST(IsolatedMemory, isLimitedWithinSingleCalls) {
    KxJsIsolation isolation = testIsolation();
    isolation.memoryLimit = std::uint64_t{128} << 20;
    KxJsParser host(isolation);
    std::u16string error;
    EXPECT_EQ(host.evaluate(u"JSON.parse('[' + '1,'.repeat(2**26) + '1]').length", error), u"");
    EXPECT_NE(error, u"");
    EXPECT_EQ(host.evaluate(u"'x'.repeat(10)", error), u"xxxxxxxxxx");
}

TEST(Isolation, takesTheLargestLimits) {
    KxJsIsolation isolation = testIsolation();
    isolation.memoryLimit = std::numeric_limits<decltype(isolation.memoryLimit)>::max();
    isolation.grace = std::chrono::milliseconds::max();
    KxJsParser host(isolation);
    host.setTimeLimit(std::chrono::seconds(20));
    std::u16string error;
    EXPECT_EQ(host.evaluate(u"'x'.repeat(1e6)", error).size(), 1'000'000U);
    EXPECT_EQ(error, u"");
}

TEST_F(Isolated, tellsOfItsSandbox) {
    KxJsSandbox const* const sandbox = host_.sandbox();
    ASSERT_NE(sandbox, nullptr);
    EXPECT_TRUE(sandbox->noNewPrivileges);
    EXPECT_TRUE(sandbox->noCapabilities);
    EXPECT_TRUE(sandbox->systemCallFilter);
    EXPECT_EQ(KxJsParser().sandbox(), nullptr);
}

TEST(Isolation, isRefusedWithoutAWorker) {
    KxJsIsolation isolation;
    isolation.worker = "/nowhere/kxjs-worker";
    EXPECT_THROW(KxJsParser{isolation}, std::runtime_error);
    std::u16string error;
    EXPECT_THROW(KxJsParser::_extractVariable(u"A", error, 0ms, isolation), std::runtime_error);
}

TEST_F(Isolated, sharesNoRandomNumbersWithOthers) {
    std::set<std::u16string> seen;
    for (int i = 0; i < 4; ++i) {
        KxJsParser other(testIsolation());
        seen.insert(other.evaluate(u"Math.random()", error_));
        seen.insert(other.evaluate(u"Math.random()", error_));
    }
    EXPECT_EQ(seen.size(), 8);
}

TEST_F(Isolated, knowsLanguagesAndTimeZonesAsOtherHostsDo) {
    KxJsParser inProcess;
    for (char16_t const* source :
         {u"new Date(0).toString()", u"new Date(1e12).toLocaleString('de')",
          u"new Date(1e12).toLocaleString('en', {timeZone: 'Asia/Tokyo', timeZoneName: 'long'})",
          u"(1234.5).toLocaleString('fr')",
          u"['b', '\\u00e4', 'a'].sort(new Intl.Collator('sv').compare)",
          u"new Intl.ListFormat('en').format(['a', 'b'])", u"new Intl.PluralRules('pl').select(3)",
          u"[...new Intl.Segmenter('th', {granularity: 'word'}).segment('a b')].length",
          u"new Intl.DisplayNames('es', {type: 'region'}).of('FR')",
          u"new Intl.RelativeTimeFormat('ja').format(-1, 'day')",
          u"'\\u0130'.toLocaleLowerCase('tr')", u"/\\p{Script=Greek}/u.test('\\u03b1')",
          u"'\\u1e9b\\u0323'.normalize('NFKD')"}) {
        std::u16string error;
        EXPECT_EQ(evaluate(source), inProcess.evaluate(source, error));
        EXPECT_EQ(error_, error);
    }
}

TEST_F(Isolated, isUsableInAForkOfTheApplication) {
    host_.addSetVariable(KxJsVariable(u"A", 5));
    std::int32_t const script = host_.parse(u"A*2", error_);
    pid_t const child = fork();
    if (child == 0) {
        bool const isRight = host_.execute(script, error_) == u"10" && evaluate(u"A+1") == u"6";
        _exit(isRight ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(host_.execute(script, error_), u"10");
}

TEST_F(Isolated, extractsNames) {
    EXPECT_EQ(KxJsParser::_extractVariable(u"A + B", error_, 0ms, isolation()),
              (std::vector<std::u16string>{u"A", u"B"}));
    EXPECT_EQ(error_, u"");
    EXPECT_EQ(
        KxJsParser::_extractVariable(u"A; [new Array(4e9)].flat()", error_, 300ms, isolation()),
        (std::vector<std::u16string>{u"A"}));
    EXPECT_EQ(error_, u"The script was ended: it ran longer than its time limit of 300 ms");
}

}  // namespace
