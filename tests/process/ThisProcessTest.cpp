#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "process/ThisProcess.h"

namespace {

TEST(ThisProcess, isAnotherOneInAFork) {
    EXPECT_EQ(kx::thisProcess(), getpid());
    pid_t const fork = ::fork();
    if (fork == 0) {
        bool const isRight = kx::thisProcess() == getpid() && kx::thisProcess() == getpid();
        _exit(isRight ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(fork, &status, 0), fork);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(kx::thisProcess(), getpid());
}

}  // namespace
