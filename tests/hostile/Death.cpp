#include <array>
#include <csignal>
#include <iostream>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Trial.h"

namespace {

/// Everything that comes out of a pipe until its other end is closed.
std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> buffer;
    for (ssize_t count = 0; (count = ::read(descriptor, buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

[[noreturn]] void runWritingInto(int descriptor, HostileScript const& script) {
    ::dup2(descriptor, STDOUT_FILENO);
    ::dup2(descriptor, STDERR_FILENO);
    rlimit const noCore{};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::_exit(survives(script) ? 0 : 1);
}

}  // namespace

End dies(HostileScript const& script) {
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
    bool const isKnownDeath =
        WIFSIGNALED(status) && words.find(script.lastWords) != std::string::npos;
    return isKnownDeath ? End::asExpected : End::otherwise;
}
