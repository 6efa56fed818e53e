// Applications that fork, wait, watch their children, end, or lose the zygote.
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "process/TestClient.h"

namespace {

using kx::Worker;
using Outcome = Worker::Outcome;

pid_t parentOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string id;
    std::string name;
    std::string state;
    pid_t parent = 0;
    file >> id >> name >> state >> parent;
    return parent;
}

/// A forked application, which tells process ids over a pipe.
class Application {
  public:
    explicit Application(std::function<int(Application&)> const& run) {
        if (pipe(ends_.data()) != 0) std::abort();
        process_ = fork();
        if (process_ == 0) _exit(run(*this));
        close(ends_[1]);
    }
    ~Application() {
        close(ends_[0]);
        if (!isOver_) wait();
    }
    Application(Application const&) = delete;
    Application& operator=(Application const&) = delete;

    void tell(pid_t process) {
        if (write(ends_[1], &process, sizeof process) != sizeof process) _exit(99);
    }
    pid_t listen() {
        pid_t process = -1;
        return read(ends_[0], &process, sizeof process) == sizeof process ? process : -1;
    }
    pid_t process() const { return process_; }
    int wait() {
        int status = -1;
        waitpid(process_, &status, 0);
        isOver_ = true;
        return status;
    }

  private:
    std::array<int, 2> ends_{};
    pid_t process_ = 0;
    bool isOver_ = false;
};

volatile sig_atomic_t childSignals = 0;

TEST(Application, SeesNoStrangersAmongItsChildren) {
    struct sigaction action {};
    action.sa_handler = [](int) { childSignals = childSignals + 1; };
    struct sigaction before {};
    sigaction(SIGCHLD, &action, &before);
    {
        Worker worker(testSettings());
        EXPECT_TRUE(isRight(worker));
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
        EXPECT_EQ(errno, ECHILD);
        EXPECT_EQ(ask(worker, TestRequest::abort).outcome, Outcome::ended);
        pid_t const zygote = parentOf(processOf(*std::make_unique<Worker>(testSettings())));
        kill(zygote, SIGKILL);
        EXPECT_TRUE(endsSoon(zygote));
    }
    sigaction(SIGCHLD, &before, nullptr);
    EXPECT_EQ(childSignals, 0);
}

TEST(Application, GetsANewZygoteWhereTheOldOneWasKilled) {
    Worker worker(testSettings());
    pid_t const process = processOf(worker);
    pid_t const zygote = parentOf(process);
    ASSERT_GT(zygote, 1);
    kill(zygote, SIGKILL);
    EXPECT_TRUE(endsSoon(process));
    EXPECT_EQ(ask(worker, TestRequest::echo).outcome, Outcome::ended);
    Worker next(testSettings());
    EXPECT_TRUE(isRight(next));
    EXPECT_NE(parentOf(processOf(next)), zygote);
}

TEST(Application, ThatForksHasWorkersInBothProcesses) {
    Worker worker(testSettings());
    EXPECT_TRUE(isRight(worker));
    pid_t const child = fork();
    if (child == 0) {
        if (!worker.isOfOtherProcess()) _exit(1);
        if (ask(worker, TestRequest::echo).outcome != Outcome::ended) _exit(2);
        Worker own(testSettings());
        worker.~Worker();
        _exit(isRight(own) ? 0 : 3);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(worker.isOfOtherProcess());
    EXPECT_TRUE(isRight(worker));
}

/// The worker, its zygote and the worker in reserve end with the application.
void expectEnd(Application& application) {
    pid_t const worker = application.listen();
    pid_t const zygote = application.listen();
    ASSERT_GT(worker, 1);
    ASSERT_GT(zygote, 1);
    application.wait();
    EXPECT_TRUE(endsSoon(worker));
    EXPECT_TRUE(endsSoon(zygote));
}

Worker* startAndTell(Application& application) {
    auto* const worker = new Worker(testSettings());
    application.tell(processOf(*worker));
    application.tell(parentOf(processOf(*worker)));
    return worker;
}

TEST(Application, MayExitWithWorkersAlive) {
    Application application([](Application& self) {
        startAndTell(self);
        return 0;
    });
    expectEnd(application);
}

TEST(Application, MayBeKilledInTheMiddleOfACall) {
    Application application([](Application& self) {
        Worker* const worker = startAndTell(self);
        alarm(1);
        ask(*worker, TestRequest::spin);
        return 0;
    });
    expectEnd(application);
}

TEST(Application, MayLeaveAForkOfItselfBehind) {
    Application application([](Application& self) {
        startAndTell(self);
        pid_t const left = fork();
        if (left == 0) {
            sleep(30);
            _exit(0);
        }
        self.tell(left);
        return 0;
    });
    expectEnd(application);
    pid_t const left = application.listen();
    ASSERT_GT(left, 1);
    EXPECT_EQ(kill(left, SIGKILL), 0) << "the fork lives";
}

TEST(Application, ThatIgnoresTheEndsOfItsChildrenHasWorkersToo) {
    signal(SIGCHLD, SIG_IGN);
    {
        Application application([](Application& self) {
            Worker* const worker = startAndTell(self);
            return isRight(*worker) ? 0 : 1;
        });
        expectEnd(application);
    }
    signal(SIGCHLD, SIG_DFL);
}

}  // namespace
