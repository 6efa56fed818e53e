#include <array>
#include <csignal>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Trial.h"

namespace {

/// Reads a pipe until its other end is closed.
std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> buffer;
    for (ssize_t count = 0; (count = ::read(descriptor, buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

/// Sanitizers handle the signals of a crash and end the process with an exit status. The child must
/// end as an application without handlers does.
void letCrashesKill() {
    for (int const signal : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL, SIGTRAP}) {
        std::signal(signal, SIG_DFL);
    }
}

[[noreturn]] void runWritingInto(int descriptor, HostileScript const& script) {
    ::dup2(descriptor, STDOUT_FILENO);
    ::dup2(descriptor, STDERR_FILENO);
    rlimit const noCore{};
    ::setrlimit(RLIMIT_CORE, &noCore);
    letCrashesKill();
    auto const milliseconds = static_cast<suseconds_t>(script.hangsFor.count());
    itimerval const alarm{{}, {milliseconds / 1000, milliseconds % 1000 * 1000}};
    ::setitimer(ITIMER_REAL, &alarm, nullptr);
    ::_exit(survives(script) ? 0 : 1);
}

}  // namespace

End endOf(HostileScript const& script) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
    pid_t const child = ::fork();
    if (child == 0) runWritingInto(pipe[1], script);
    ::close(pipe[1]);
    std::string const words = readAll(pipe[0]);
    ::close(pipe[0]);
    int status = 0;
    if (child == -1 || ::waitpid(child, &status, 0) != child) throw std::runtime_error("no child");
    std::cout << words << std::endl;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return End::survived;
    if (script.hangsFor.count() > 0) {
        bool const isCutOff = WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM;
        return isCutOff ? End::asExpected : End::otherwise;
    }
    bool const isKnownDeath =
        WIFSIGNALED(status) && words.find(script.lastWords) != std::string::npos &&
        (script.signal.empty() || script.signal == ::sigabbrev_np(WTERMSIG(status)));
    return isKnownDeath ? End::asExpected : End::otherwise;
}
