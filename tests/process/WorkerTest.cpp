// Workers as the application has them: messages, time, memory, ends.
#include <csignal>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>
#include <system_error>
#include <thread>

#include "process/ChannelMemory.h"
#include "process/TestClient.h"

namespace {

using namespace std::chrono_literals;
using kx::Worker;
using Outcome = Worker::Outcome;

TEST(Worker, AnswersMessagesOfAnyLength) {
    Worker worker(testSettings());
    for (std::size_t length :
         {std::size_t{0}, std::size_t{1}, kx::kChannelPart - 9, kx::kChannelPart - 8,
          kx::kChannelPart, 2 * kx::kChannelPart - 9, 5 * kx::kChannelPart + 17}) {
        std::string text(length, 'x');
        for (std::size_t i = 0; i < length; ++i) text[i] = static_cast<char>('a' + i % 23);
        auto const reply = ask(worker, TestRequest::echo, 0, text);
        EXPECT_EQ(reply.outcome, Outcome::arrived) << length;
        EXPECT_TRUE(reply.text == text) << length;
    }
}

TEST(Worker, AnswersManyMessages) {
    Worker worker(testSettings());
    for (int i = 0; i < 20000; ++i) {
        ASSERT_EQ(ask(worker, TestRequest::echo, 0, std::to_string(i)).text, std::to_string(i));
    }
}

TEST(Worker, AnswersAfterPausesOfAllLengths) {
    Worker worker(testSettings());
    for (auto pause = 1us; pause < 200ms; pause *= 3) {
        std::this_thread::sleep_for(pause);
        ASSERT_TRUE(isRight(worker));
    }
}

TEST(Worker, IsLateWhereItDoesNotAnswer) {
    Worker worker(testSettings());
    EXPECT_EQ(ask(worker, TestRequest::spin, 0, {}, 50ms).outcome, Outcome::late);
}

TEST(Worker, EndsWithItsObjectWhateverItDoes) {
    pid_t process = 0;
    {
        Worker worker(testSettings());
        process = processOf(worker);
        EXPECT_EQ(ask(worker, TestRequest::spin, 0, {}, 20ms).outcome, Outcome::late);
    }
    EXPECT_TRUE(endsSoon(process));
}

TEST(Worker, IsInterruptedByAnotherThread) {
    Worker worker(testSettings());
    std::thread other([&worker] {
        std::this_thread::sleep_for(50ms);
        worker.interrupt();
    });
    EXPECT_EQ(ask(worker, TestRequest::wait).text, "interrupted");
    other.join();
    EXPECT_TRUE(isRight(worker));
}

TEST(Worker, IsGivenUpByAnotherThread) {
    Worker worker(testSettings());
    std::thread other([&worker] {
        std::this_thread::sleep_for(50ms);
        worker.endBefore(kx::Deadline::Clock::now() + 20ms);
    });
    EXPECT_EQ(ask(worker, TestRequest::spin).outcome, Outcome::late);
    other.join();
}

TEST(Worker, ANewDeadlineForgetsOneThatWasBroughtForward) {
    Worker worker(testSettings());
    worker.endBefore(kx::Deadline::Clock::now());
    EXPECT_TRUE(isRight(worker));
    std::this_thread::sleep_for(50ms);
    EXPECT_TRUE(isRight(worker));
}

TEST(Worker, TellsHowItEnded) {
    struct Case {
        TestRequest request;
        std::uint64_t number;
        int signal;
        int status;
    };
    for (Case const& one : {Case{TestRequest::exit, 3, 0, 3}, Case{TestRequest::exit, 0, 0, 0},
                            Case{TestRequest::abort, 0, SIGABRT, 0}}) {
        Worker worker(testSettings());
        EXPECT_EQ(ask(worker, one.request, one.number).outcome, Outcome::ended);
        auto const status = worker.endStatus();
        ASSERT_TRUE(status.has_value());
        if (one.signal != 0) {
            EXPECT_EQ(WTERMSIG(*status), one.signal);
        } else {
            EXPECT_EQ(WEXITSTATUS(*status), one.status);
        }
        EXPECT_EQ(ask(worker, TestRequest::echo).outcome, Outcome::ended);
    }
}

TEST(Worker, KilledFromOutsideHasEnded) {
    Worker worker(testSettings());
    std::thread other([process = processOf(worker)] {
        std::this_thread::sleep_for(50ms);
        kill(process, SIGKILL);
    });
    EXPECT_EQ(ask(worker, TestRequest::spin).outcome, Outcome::ended);
    other.join();
}

TEST(Worker, HasNoMoreMemoryThanItsLimit) {
    Worker worker(testSettings());
    EXPECT_EQ(ask(worker, TestRequest::allocate, 48 << 20).text, "done");
    EXPECT_EQ(ask(worker, TestRequest::allocate, 65 << 20).text, "no memory");
    EXPECT_EQ(ask(worker, TestRequest::allocate, std::uint64_t{1} << 40).text, "no memory");
    EXPECT_TRUE(isRight(worker));
}

TEST(Worker, ThatSendsMoreThanItCanHoldIsInvalid) {
    auto settings = testSettings();
    settings.memoryLimit = std::uint64_t{1} << 20;
    Worker worker(settings);
    EXPECT_EQ(ask(worker, TestRequest::lengthen, 2 << 20).outcome, Outcome::ended);
}

TEST(Worker, StartsThreads) {
    Worker worker(testSettings());
    EXPECT_EQ(ask(worker, TestRequest::threads, 5).text, "5");
}

TEST(Worker, SharesNoRandomNumbers) {
    std::set<std::string> seen;
    for (int i = 0; i < 5; ++i) {
        Worker worker(testSettings());
        seen.insert(ask(worker, TestRequest::random).text);
    }
    EXPECT_EQ(seen.size(), 5);
}

TEST(Worker, OfAnotherVersionIsRefused) {
    auto settings = testSettings();
    settings.version = "test 2";
    EXPECT_THROW(Worker{settings}, std::runtime_error);
}

TEST(Worker, ThatIsNotThereIsRefused) {
    auto settings = testSettings();
    settings.program = "/nowhere/kxjs-worker";
    EXPECT_THROW(Worker{settings}, std::system_error);
    settings.program = "/bin/true";
    EXPECT_THROW(Worker{settings}, std::runtime_error);
}

TEST(Worker, ServesOneThreadEach) {
    std::vector<std::thread> threads;
    std::atomic<int> right = 0;
    threads.reserve(8);
    for (int thread = 0; thread < 8; ++thread) {
        threads.emplace_back([&right] {
            for (int i = 0; i < 3; ++i) {
                Worker worker(testSettings());
                for (int call = 0; call < 100; ++call) {
                    if (!isRight(worker)) return;
                }
            }
            ++right;
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, 8);
}

}  // namespace
