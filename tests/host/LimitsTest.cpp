#include <atomic>
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include <v8.h>

#include "ScriptHost.h"

namespace {

using std::chrono::milliseconds;
using Outcome = ScriptHost::Run;

constexpr std::size_t kMebibyte = std::size_t{1} << 20;

Outcome const kTimedOut{u"", u"The script was ended: it ran longer than its time limit of 50 ms"};
Outcome const kOutOfMemory{u"",
                           u"The script was ended: it needed more than the memory limit of 64 MiB"};
Outcome const kTerminated{u"", u"The script was ended: it was terminated"};

class TimeLimit : public testing::TestWithParam<char16_t const*> {};

TEST_P(TimeLimit, endsTheScriptAndNotTheNext) {
    ScriptHost host;
    host.host.setTimeLimit(milliseconds(50));
    EXPECT_EQ(host.run(GetParam()), kTimedOut);
    EXPECT_EQ(host.run(u"1+1"), (Outcome{u"2", u""}));
    EXPECT_EQ(host.run(GetParam()), kTimedOut);
    host.host.reset();
    EXPECT_EQ(host.run(u"LEN('abc')"), (Outcome{u"3", u""}));
}

INSTANTIATE_TEST_SUITE_P(
    scripts, TimeLimit,
    testing::Values(u"while (true);", u"/(a+)+b/.test('a'.repeat(100))",
                    u"({ toString() { while (true); } })",
                    u"throw { toString() { while (true); } }",
                    u"[3,2,1].sort(() => { while (true); })", u"({ get x() { while (true); } }).x",
                    u"(function f() { Promise.resolve().then(f); })(); 1",
                    u"Promise.resolve().then(() => { while (true); }); while (true);",
                    u"try { while (true); } catch (e) {} finally { while (true); }"));

TEST(TimeLimits, areOffByDefaultAndCanBeTakenBack) {
    ScriptHost host;
    host.host.setTimeLimit(milliseconds(1));
    host.host.setTimeLimit(milliseconds(0));
    EXPECT_EQ(host.eval(u"var end = Date.now() + 30; while (Date.now() < end); 'done'"), u"done");
}

TEST(TimeLimits, keepTheApplicationsSignalsAwayFromTheirThread) {
    sigset_t mine;
    sigset_t before;
    sigemptyset(&mine);
    sigaddset(&mine, SIGUSR1);
    ASSERT_EQ(pthread_sigmask(SIG_BLOCK, &mine, &before), 0);
    ScriptHost host;
    host.host.setTimeLimit(milliseconds(10000));
    EXPECT_EQ(host.eval(u"1"), u"1");
    // Would end the process if it were delivered to another thread than this one.
    ASSERT_EQ(::kill(::getpid(), SIGUSR1), 0);
    timespec const longest{5, 0};
    EXPECT_EQ(sigtimedwait(&mine, nullptr, &longest), SIGUSR1);
    ASSERT_EQ(pthread_sigmask(SIG_SETMASK, &before, nullptr), 0);
    sigset_t after;
    ASSERT_EQ(pthread_sigmask(SIG_SETMASK, nullptr, &after), 0);
    EXPECT_FALSE(sigismember(&after, SIGUSR2));
}

TEST(TimeLimits, mayBeAsLongAsATimeCanBe) {
    ScriptHost host;
    host.host.setTimeLimit(milliseconds::max());
    EXPECT_EQ(host.eval(u"var end = Date.now() + 60; while (Date.now() < end); 'done'"), u"done");
    host.host.setTimeLimit(milliseconds::min());
    EXPECT_EQ(host.eval(u"'none'"), u"none");
}

TEST(TimeLimits, thatPassAsAScriptEndsLeaveTheNextAlone) {
    ScriptHost host;
    host.bind(u"LIMIT", 0);
    std::int32_t const near = host.parse(u"var e = Date.now() + 1; while (Date.now() < e); 1");
    std::int32_t const next = host.parse(u"2");
    for (int i = 0; i < 200; ++i) {
        host.host.setTimeLimit(milliseconds(1));
        Outcome const outcome = host.execute(near);
        EXPECT_TRUE(outcome == (Outcome{u"1", u""}) ||
                    outcome.error ==
                        u"The script was ended: it ran longer than its time limit of 1 ms");
        host.host.setTimeLimit(milliseconds(0));
        ASSERT_EQ(host.execute(next), (Outcome{u"2", u""}));
    }
}

class MemoryLimit : public testing::TestWithParam<char16_t const*> {};

TEST_P(MemoryLimit, endsTheScriptAndNotTheNext) {
    ScriptHost host;
    host.host.setMemoryLimit(64 * kMebibyte);
    EXPECT_EQ(host.run(GetParam()), kOutOfMemory);
    EXPECT_EQ(host.run(u"1+1"), (Outcome{u"2", u""}));
    host.host.reset();
    EXPECT_EQ(host.run(u"LEN('abc')"), (Outcome{u"3", u""}));
    host.host.setMemoryLimit(512 * kMebibyte);
}

INSTANTIATE_TEST_SUITE_P(
    scripts, MemoryLimit,
    testing::Values(
        u"(() => { var a = []; while (true) a.push({ x: a.length }); })()",
        u"(() => { var a = []; while (true) a.push(new Array(10000).fill(1)); })()",
        u"(() => { var f = () => 0; while (true) f = f.bind(f); })()",
        u"(() => { var a = []; while (true) a.push(new Intl.Collator('de')); })()",
        u"(() => { var a = []; while (true) a.push(new Intl.DateTimeFormat('de')); })()",
        u"(function f(a) { Promise.resolve([a]).then(f); f.all = [f.all, "
        u"new Array(1000)]; })(); 1"));

TEST(MemoryLimits, letAScriptUseManyIntlObjectsOneAfterTheOther) {
    ScriptHost host;
    host.host.setMemoryLimit(64 * kMebibyte);
    EXPECT_EQ(host.run(u"var l = 0; for (let i = 0; i < 2e4; i++)"
                       u"  l += new Intl.NumberFormat('en').format(i % 10).length; l"),
              (Outcome{u"20000", u""}));
    host.host.setMemoryLimit(512 * kMebibyte);
}

TEST(MemoryLimits, doNotCountTheHandlesOfManyScriptsAndVariables) {
    ScriptHost host;
    host.host.setMemoryLimit(64 * kMebibyte);
    for (int i = 0; i < 1000; ++i) {
        std::u16string const key = u"V" + KxJsVariable(u"N", i).valueToString();
        host.bind(key, u"text");
        for (int j = 0; j < 4; ++j) ASSERT_NE(host.parse(key), -1);
    }
    EXPECT_EQ(host.run(u"for (let i = 0; i < 3e6; i++) new Array(10); 'done'"),
              (Outcome{u"done", u""}));
    host.host.setMemoryLimit(512 * kMebibyte);
}

TEST(MemoryLimits, belowWhatIsInUseLeaveRoomForTheNextScript) {
    ScriptHost host;
    ScriptHost other;
    ASSERT_EQ(host.run(u"kept = new Array(1e7).fill(1.5); 1"), (Outcome{u"1", u""}));
    other.host.setMemoryLimit(16 * kMebibyte);
    EXPECT_EQ(other.run(u"for (let i = 0; i < 3e6; i++) new Array(10); 'done'"),
              (Outcome{u"done", u""}));
    EXPECT_NE(other.run(u"{ let a = []; for (;;) a.push([1]); }").error.find(u"limit of 16 MiB"),
              std::u16string::npos);
    other.host.setMemoryLimit(512 * kMebibyte);
}

TEST(MemoryLimits, doNotEndAScriptForWhatOneBeforeItHasLeft) {
    ScriptHost host;
    ScriptHost other;
    host.host.setMemoryLimit(32 * kMebibyte);
    // Ends by itself before the limit is looked at again.
    Outcome const outcome =
        host.run(u"for (let i = 0; i < 1e6; i++) new Array(10); kept = new Array(1e7); 1");
    ASSERT_EQ(outcome, (Outcome{u"1", u""}));
    EXPECT_EQ(other.run(u"for (let i = 0; i < 3e6; i++) new Array(10); 'done'"),
              (Outcome{u"done", u""}));
    other.host.setMemoryLimit(512 * kMebibyte);
}

TEST(MemoryLimits, doNotEndAScriptForTheGarbageOfOtherHosts) {
    ScriptHost host;
    host.host.setMemoryLimit(32 * kMebibyte);
    for (int i = 0; i < 1000; ++i) {
        ScriptHost().run(u"kept = new Array(1000).join('x')");
        ASSERT_EQ(host.run(u"for (let i = 0; i < 30000; i++) new Array(10); 'done'"),
                  (Outcome{u"done", u""}))
            << i;
    }
    host.host.setMemoryLimit(512 * kMebibyte);
}

TEST(MemoryLimits, refuseWhoClimbsWhileTheSameIsSetAgainUntilAHigherOneIsSet) {
    ScriptHost bad;
    std::u16string error;
    for (int i = 0; i < 30 && error.find(u"was not run") == std::u16string::npos; ++i) {
        bad.host.setMemoryLimit(8 * kMebibyte);
        error = bad.run(
                       u"kept = typeof kept === 'object' ? kept : []; for (;;) kept.push(new "
                       u"Array(1000).fill(1.5));")
                    .error;
    }
    EXPECT_NE(error.find(u"was not run"), std::u16string::npos);
    EXPECT_EQ(bad.run(u"kept = null; 1"), (Outcome{u"", error}));
    bad.host.setMemoryLimit(512 * kMebibyte);
    EXPECT_EQ(bad.run(u"kept = null; 1"), (Outcome{u"1", u""}));
}

TEST(MemoryLimits, areNotClimbedByScriptsThatKeepWhatTheyMake) {
    auto bad = std::make_unique<ScriptHost>();
    ScriptHost good;
    bad->host.setMemoryLimit(8 * kMebibyte);
    std::u16string error;
    for (int i = 0; i < 30 && error.find(u"was not run") == std::u16string::npos; ++i) {
        error = bad->run(
                       u"kept = typeof kept === 'object' ? kept : [];"
                       u"for (;;) kept.push(new Array(1000).fill(1.5));")
                    .error;
        EXPECT_NE(error, u"");
    }
    v8::HeapStatistics statistics;
    v8::Isolate::GetCurrent()->GetHeapStatistics(&statistics);
    EXPECT_LT(statistics.used_heap_size(), 200 * kMebibyte);
    EXPECT_EQ(error,
              u"The script was not run: its host's scripts keep more than the memory limit of "
              u"8 MiB");
    EXPECT_EQ(bad->host.lastFailure()->kind, KxJsFailure::Kind::LIMIT);
    Outcome const harmless{u"done", u""};
    EXPECT_EQ(good.run(u"for (let i = 0; i < 1e6; i++) new Array(10); 'done'"), harmless);
    bad->host.reset();  // leaves what scripts keep
    EXPECT_EQ(bad->run(u"1+1").error, error);
    // Memory comes back when that host is destroyed. Until then this one is refused too, once a run
    // of its own was ended for its memory.
    good.run(u"{ let a = []; for (;;) a.push([1]); }");
    EXPECT_EQ(good.run(u"1+1").error, error);
    bad.reset();
    EXPECT_EQ(good.run(u"1+1"), (Outcome{u"2", u""}));
    good.host.setMemoryLimit(512 * kMebibyte);
}

/// Full collections while it lives.
class FullCollections {
  public:
    FullCollections() { isolate_->AddGCEpilogueCallback(count, this, v8::kGCTypeMarkSweepCompact); }
    ~FullCollections() { isolate_->RemoveGCEpilogueCallback(count, this); }
    FullCollections(FullCollections const&) = delete;
    FullCollections& operator=(FullCollections const&) = delete;

    int count() const { return count_; }

  private:
    static void count(v8::Isolate* /*isolate*/, v8::GCType /*type*/, v8::GCCallbackFlags /*flags*/,
                      void* self) {
        ++static_cast<FullCollections*>(self)->count_;
    }

    v8::Isolate* isolate_ = v8::Isolate::GetCurrent();
    int count_ = 0;
};

TEST(MemoryLimits, letAScriptWorkNearThemWithoutCollectingAllTheTime) {
    ScriptHost host;
    host.host.setMemoryLimit(88 * kMebibyte);
    FullCollections const full;
    EXPECT_EQ(host.run(u"{ let kept = [], fresh = [];"
                       u"  for (let i = 0; i < 9000; i++) kept.push(new Array(1000).fill(i));"
                       u"  for (let i = 0; i < 2.5e6; i++) fresh[i % 50000] = { y: [i] };"
                       u"  kept.length + fresh.length }"),
              (Outcome{u"59000", u""}));
    EXPECT_LE(full.count(), 20);
    host.host.setMemoryLimit(512 * kMebibyte);
}

TEST(MemoryLimits, refuseArrayBuffers) {
    ScriptHost host;
    host.host.setMemoryLimit(64 * kMebibyte);
    EXPECT_NE(host.run(u"new ArrayBuffer(100 * 1024 * 1024)")
                  .error.find(u"RangeError: Array buffer allocation failed"),
              std::u16string::npos);
    EXPECT_EQ(host.eval(u"new ArrayBuffer(1024).byteLength"), u"1024");
    host.host.setMemoryLimit(512 * kMebibyte);
}

TEST(MemoryLimits, endAScriptThatKeepsBuffersInAHeapThatIsFull) {
    ScriptHost host;
    host.host.setTimeLimit(milliseconds(20000));
    host.host.setMemoryLimit(64 * kMebibyte);
    EXPECT_EQ(host.run(u"g = []; for (;;) g.push(new Array(1000).fill(1.5))"), kOutOfMemory);
    Outcome const outcome = host.run(
        u"(() => { var b = []; for (var i = 0; i < 40; i++) b.push(new ArrayBuffer(1 << 20));"
        u" return i; })()");
    EXPECT_TRUE(outcome == (Outcome{u"40", u""}) || outcome == kOutOfMemory ||
                outcome.error.find(u"RangeError: Array buffer allocation failed") !=
                    std::u16string::npos)
        << testing::PrintToString(outcome);
    EXPECT_EQ(host.eval(u"g = null; 2"), u"2");
    host.host.setMemoryLimit(512 * kMebibyte);
}

TEST(Terminate, endsTheRunningScript) {
    ScriptHost host;
    std::atomic<bool> isOver = false;
    std::thread other([&] {
        while (!isOver) {
            host.host.terminate();
            std::this_thread::sleep_for(milliseconds(5));
        }
    });
    EXPECT_EQ(host.run(u"while (true);"), kTerminated);
    isOver = true;
    other.join();
    EXPECT_EQ(host.run(u"1+1"), (Outcome{u"2", u""}));
}

TEST(Terminate, doesNothingBetweenRuns) {
    ScriptHost host;
    host.host.terminate();
    EXPECT_EQ(host.run(u"1+1"), (Outcome{u"2", u""}));
}

TEST(Terminate, endsARunOrNoneButNeverAnotherWay) {
    ScriptHost host;
    std::int32_t const script = host.parse(u"for (var i = 0; i < 2000; ++i); 7");
    std::atomic<bool> isOver = false;
    std::thread other([&] {
        while (!isOver) {
            host.host.terminate();
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
    });
    int ended = 0;
    int completed = 0;
    for (int i = 0; i < 100000 && (i < 2000 || ended == 0 || completed == 0); ++i) {
        Outcome const outcome = host.execute(script);
        ended += outcome == kTerminated ? 1 : 0;
        completed += outcome == (Outcome{u"7", u""}) ? 1 : 0;
        if (ended + completed != i + 1) {
            ADD_FAILURE() << testing::PrintToString(outcome);
            break;
        }
    }
    isOver = true;
    other.join();
    EXPECT_GT(ended, 0);
    EXPECT_GT(completed, 0);
    EXPECT_EQ(host.run(u"1+1"), (Outcome{u"2", u""}));
}

}  // namespace
