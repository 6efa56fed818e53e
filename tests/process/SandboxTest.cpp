// What somebody can do who has taken over a worker: nothing.
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/wait.h>

#include "process/Attacks.h"
#include "process/Forgeries.h"
#include "process/TestClient.h"

namespace {

using namespace std::chrono_literals;
using kx::SandboxPiece;
using kx::Worker;
using Outcome = Worker::Outcome;

/// A process that waits for its end, and a file that is not there.
class Sandbox : public testing::Test {
  protected:
    Sandbox() : victim_(fork()) {
        if (victim_ != 0) return;
        while (true) pause();
    }
    ~Sandbox() override {
        kill(victim_, SIGKILL);
        waitpid(victim_, nullptr, 0);
    }

    bool isUnharmed() const {
        return waitpid(victim_, nullptr, WNOHANG) == 0 && !std::filesystem::exists(file_);
    }
    std::string target() const { return std::to_string(victim_) + " " + file_; }

    pid_t victim_;
    std::string file_ = testing::TempDir() + "kxjs-attack-" + std::to_string(getpid());
};

TEST_F(Sandbox, LeavesAnAttackerWithoutEffect) {
    std::size_t refused = 0;
    std::size_t ended = 0;
    auto worker = std::make_unique<Worker>(testSettings());
    for (std::size_t number = 0; number < attackCount(); ++number) {
        auto const reply = ask(*worker, TestRequest::attack, number, target(), 10s);
        if (reply.outcome == Outcome::ended) {
            ++ended;
            auto const status = worker->endStatus();
            ASSERT_TRUE(status.has_value()) << number;
            EXPECT_EQ(WTERMSIG(*status), SIGSYS) << number;
            worker = std::make_unique<Worker>(testSettings());
        } else {
            ASSERT_EQ(reply.outcome, Outcome::arrived) << number;
            bool const isRefused = reply.text.starts_with("-1 " + std::to_string(EPERM) + " ") ||
                                   reply.text.starts_with("-1 " + std::to_string(ENOSYS) + " ");
            EXPECT_TRUE(isRefused) << reply.text;
            ++refused;
        }
        EXPECT_TRUE(isUnharmed()) << number;
        EXPECT_TRUE(isRight(*worker)) << number;
    }
    EXPECT_GE(refused, 50);
    EXPECT_EQ(ended, 3) << "calls of other architectures";
}

TEST_F(Sandbox, LeavesForgedMessagesWithoutEffect) {
    for (std::size_t number = 0; number < forgeryCount(); ++number) {
        Worker worker(testSettings());
        ASSERT_TRUE(isRight(worker));
        auto const reply = ask(worker, TestRequest::forge, number, {}, 500ms);
        EXPECT_TRUE(reply.outcome == Outcome::invalid || reply.outcome == Outcome::late ||
                    (reply.outcome == Outcome::arrived && reply.text.size() == 8))
            << nameOfForgery(number);
        Worker next(testSettings());
        EXPECT_TRUE(isRight(next)) << nameOfForgery(number);
    }
}

TEST_F(Sandbox, TellsItsPieces) {
    Worker worker(testSettings());
    for (SandboxPiece piece : {SandboxPiece::noNewPrivileges, SandboxPiece::noCapabilities,
                               SandboxPiece::systemCallFilter}) {
        EXPECT_NE(worker.pieces() & static_cast<kx::SandboxPieces>(piece), 0U)
            << static_cast<int>(piece);
    }
}

TEST_F(Sandbox, GivesNoWorkerWithoutARequiredPiece) {
    auto settings = testSettings();
    settings.requiredPieces = 1 << 30;
    EXPECT_THROW(Worker{settings}, std::runtime_error);
    settings.requiredPieces = static_cast<kx::SandboxPieces>(SandboxPiece::systemCallFilter);
    Worker worker(settings);
    EXPECT_TRUE(isRight(worker));
}

}  // namespace
