#include <array>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <pthread.h>
#include <string>
#include <thread>
#include <vector>

#include "ScriptHost.h"
#include "convert/Converter.h"
#include "library/Catalogues.h"

namespace {

std::u16string decimal(int number) {
    std::string const digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

TEST(Threads, haveHostsOfTheirOwn) {
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t, &right] {
            ScriptHost host;
            host.bind(u"A", t);
            std::int32_t const script = host.parse(u"LEN('abc')+A");
            for (int i = 0; i < 200; ++i) right += host.execute(script).result == decimal(3 + t);
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, 800);
}

// From the third thread on, the built-in functions are taken over in compiled form.
TEST(Threads, shareTheBuiltInFunctions) {
    std::vector<std::u16string> errors;
    for (int t = 0; t < 5; ++t) {
        std::thread([&errors] {
            ScriptHost host;
            EXPECT_EQ(host.eval(u"ROUND(2.456,2)+ALLTRIM('  x ')"), u"2.46x");
            // The place of an error inside a built-in function is part of its text.
            errors.push_back(host.run(u"ALLTRIM(null)").error);
        }).join();
    }
    EXPECT_NE(errors.front(), u"");
    for (std::u16string const& error : errors) EXPECT_EQ(error, errors.front());
}

TEST(Threads, refuseAForeignHost) {
    ScriptHost host;
    host.bind(u"A", 1);
    std::int32_t const script = host.parse(u"A");
    auto const useElsewhere = [&host, script] {
        std::u16string error = u"before";
        EXPECT_EQ(host.host.parse(u"1", error), -1);
        EXPECT_EQ(error, u"before");
        EXPECT_EQ(host.host.execute(script, error), u"");
        EXPECT_EQ(error, u"The script host belongs to another thread or to another engine isolate");
        host.host.initialize();  // does nothing
    };
    std::thread(useElsewhere).join();  // no isolate there
    std::thread([&useElsewhere] {
        ScriptHost const own;  // another isolate there
        useElsewhere();
    }).join();
    EXPECT_EQ(host.execute(script).result, u"1");
}

TEST(Threads, mayDestroyAForeignHost) {
    auto host = std::make_unique<ScriptHost>();
    host->bind(u"A", 1);
    EXPECT_EQ(host->eval(u"A"), u"1");
    ScriptHost other;
    std::thread([&host] { host.reset(); }).join();
    EXPECT_EQ(other.eval(u"1+1"), u"2");
}

TEST(Threads, mayResetAForeignHost) {
    ScriptHost host;
    host.bind(u"A", 1);
    EXPECT_EQ(host.eval(u"kept = A___A; A"), u"1");
    std::thread([&host] { host.host.reset(); }).join();
    EXPECT_FALSE(host.host.variableExist(u"A"));
    EXPECT_EQ(host.parse(u"String(kept.ouraccessor)"), 0);
    EXPECT_EQ(host.execute(0).result, u"undefined");
}

TEST(Threads, mayEndBeforeTheirHosts) {
    std::unique_ptr<ScriptHost> first;
    std::unique_ptr<ScriptHost> second;
    std::thread([&] {
        first = std::make_unique<ScriptHost>();
        second = std::make_unique<ScriptHost>();
        second->bind(u"A", 1);
        EXPECT_EQ(second->eval(u"A"), u"1");
    }).join();
    EXPECT_EQ(second->parse(u"1"), -1);
    EXPECT_EQ(second->execute(0).result, u"");
    first.reset();
    ScriptHost here;
    second.reset();
    EXPECT_EQ(here.eval(u"1+1"), u"2");
}

TEST(Threads, comeAndGo) {
    for (int i = 0; i < 20; ++i) {
        std::thread([] {
            ScriptHost host;
            EXPECT_EQ(host.eval(u"LEN('abcd')"), u"4");
        }).join();
    }
}

// In a process of its own this is the first use of everything that is made once for the process.
TEST(Threads, useEverythingAtOnce) {
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&right] {
            for (int i = 0; i < 5; ++i) {
                std::u16string const source = Converter::_convert(u"IIF(A>2 .AND. A<>9,'OK','KO')");
                ScriptHost host;
                host.host.setTimeLimit(std::chrono::milliseconds(60000));
                host.bind(u"A", 5);
                right += host.eval(source) == u"OK";
                right += !KxJsParser::_getUserDocumentation(true, true).empty();
                right += KxJsParser::_getUserDocumentation().size() == 63;
                right += buildMathFunctions().size() + buildStringFunctions().size() +
                             buildMiscFunctions().size() ==
                         63;
                std::u16string error;
                right += KxJsParser::_extractVariable(u"FREE+LEN('a')", error) ==
                         std::vector<std::u16string>{u"FREE"};
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, 4 * 5 * 5);
}

void runOnStackOf(std::size_t bytes, void* (*body)(void*)) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
    pthread_t thread = {};
    ASSERT_EQ(pthread_create(&thread, &attributes, body, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

class SmallStack : public testing::TestWithParam<std::size_t> {};

TEST_P(SmallStack, endsRecursionWithAnErrorText) {
#ifdef __SANITIZE_THREAD__
    // The thread sanitizer keeps data on the thread's stack, and leaves V8 too little.
    if (GetParam() < 1U << 20) GTEST_SKIP() << "not enough stack beside the thread sanitizer";
#endif
    runOnStackOf(GetParam(), [](void*) -> void* {
        ScriptHost host;
        EXPECT_NE(host.run(u"(function f() { return f() + 1; })()")
                      .error.find(u"RangeError: Maximum call stack size exceeded"),
                  std::u16string::npos);
        EXPECT_NE(host.run(u"eval('['.repeat(100000))").error, u"");
        EXPECT_NE(host.run(u"/(a|b|ab|ba)*c/.test('('.repeat(9)); f = () => [1].map(f); f()").error,
                  u"");
        EXPECT_EQ(host.eval(u"ROUND(1.25, 1)"), u"1.3");
        return nullptr;
    });
}

/// Calls `body` with at most `left` bytes of the stack left.
void callWithLittleStack(std::uintptr_t low, std::size_t left, void (*body)()) {
    std::array<char volatile, 4096> frame;
    frame[0] = 1;
    if (reinterpret_cast<std::uintptr_t>(&frame[0]) - low > left) {
        callWithLittleStack(low, left, body);
        frame[1] = frame[0];  // not a tail call
    } else {
        body();
    }
}

TEST(LittleStack, makesInitializeTellThatItCouldNot) {
    runOnStackOf(4U << 20, [](void*) -> void* {
        static std::unique_ptr<KxJsParser> host;
        host = std::make_unique<KxJsParser>();
        pthread_attr_t attributes;
        void* low = nullptr;
        std::size_t size = 0;
        pthread_getattr_np(pthread_self(), &attributes);
        pthread_attr_getstack(&attributes, &low, &size);
        pthread_attr_destroy(&attributes);
        callWithLittleStack(reinterpret_cast<std::uintptr_t>(low), 100U << 10,
                            [] { EXPECT_NO_THROW(host->initialize()); });
        if (host->lastFailure() == nullptr) {
            ADD_FAILURE() << "it could";
        } else {
            // There is no stack for the exception's text either.
            EXPECT_EQ(host->lastFailure()->kind, KxJsFailure::Kind::RUN_ERROR);
        }
        host->initialize();
        EXPECT_EQ(host->lastFailure(), nullptr);
        std::u16string error;
        EXPECT_EQ(host->evaluate(u"LEN('abc')", error), u"3");
        host.reset();
        return nullptr;
    });
}

INSTANTIATE_TEST_SUITE_P(sizes, SmallStack,
                         testing::Values(512U << 10, 1U << 20, 2U << 20, 16U << 20, 64U << 20));

}  // namespace
