#include "process/DetachedSpawn.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "process/OwnedDescriptor.h"
#include "process/SignalsBlocked.h"
#include "process/SystemError.h"

namespace kx {

namespace {

/// Above every descriptor that the zygote gets, so that none is overwritten before it is copied.
constexpr int kFirstFree = 16;

/// What is passed on of the environment. A worker that a script has taken over could tell the rest.
bool isPassedOn(std::string_view entry) {
    for (std::string_view name : {"TZ=", "TZDIR=", "LANG=", "LANGUAGE=", "LC_",
                                  "LD_LIBRARY_PATH=", "ICU_", "ASAN_OPTIONS=", "UBSAN_OPTIONS="}) {
        if (entry.substr(0, name.size()) == name) return true;
    }
    return false;
}

std::vector<char*> passedEnvironment() {
    std::vector<char*> entries;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        if (isPassedOn(*entry)) entries.push_back(*entry);
    }
    entries.push_back(nullptr);
    return entries;
}

/// What posix_spawn() needs, made before the clone, where nothing may be allocated.
class Start {
  public:
    Start(std::string const& program, int socket, int lifeline)
        : program_(program), environment_(passedEnvironment()) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
        for (int standard = 0; standard < 3; ++standard) {
            posix_spawn_file_actions_addopen(&actions_, standard, "/dev/null", O_RDWR, 0);
        }
        posix_spawn_file_actions_adddup2(&actions_, socket, kZygoteSocket);
        posix_spawn_file_actions_adddup2(&actions_, lifeline, kZygoteLifeline);
        posix_spawn_file_actions_addclosefrom_np(&actions_, kZygoteLifeline + 1);
        sigset_t signals;
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    Start(Start const&) = delete;
    Start& operator=(Start const&) = delete;
    ~Start() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&actions_);
    }

    void run() {
        std::array<char*, 3> arguments = {const_cast<char*>(program_.c_str()),
                                          const_cast<char*>("--serve"), nullptr};
        pid_t zygote = 0;
        error_ = posix_spawn(&zygote, program_.c_str(), &actions_, &attributes_, arguments.data(),
                             environment_.data());
    }
    int error() const { return error_; }

  private:
    std::string const& program_;
    std::vector<char*> environment_;
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
    int error_ = 0;
};

/// What a stack consists of.
struct alignas(16) Aligned {
    std::array<std::byte, 16> bytes;
};

int runStart(void* start) {
    static_cast<Start*>(start)->run();
    return 0;
}

}  // namespace

void spawnDetached(std::string const& program, int socket, int lifeline) {
    OwnedDescriptor const socketCopy(fcntl(socket, F_DUPFD_CLOEXEC, kFirstFree));
    OwnedDescriptor const lifelineCopy(fcntl(lifeline, F_DUPFD_CLOEXEC, kFirstFree));
    if (!socketCopy || !lifelineCopy) throwSystemError("copying a descriptor");
    Start start(program, socketCopy.get(), lifelineCopy.get());

    // A clone in between, which ends at once, is the zygote's parent. It shares this memory, this
    // thread waits for it as for vfork(), and its end sends no signal and is not seen by wait().
    constexpr std::size_t kStack = std::size_t{256} * 1024;
    std::vector<Aligned> stack(kStack / sizeof(Aligned));
    // Since it shares this memory, no signal handler of the application may run in it.
    SignalsBlocked const meanwhile;
    pid_t const between =
        clone(runStart, stack.data() + stack.size(), CLONE_VM | CLONE_VFORK, &start);
    if (between < 0) throwSystemError("clone");
    pid_t waited = -1;
    do {
        waited = waitpid(between, nullptr, __WCLONE);
    } while (waited < 0 && errno == EINTR);
    if (start.error() != 0) {
        errno = start.error();
        throwSystemError(program.c_str());
    }
}

}  // namespace kx
