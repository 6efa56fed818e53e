#include "worker/Zygote.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <span>
#include <string_view>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

#include "process/ChannelMemory.h"
#include "process/DetachedSpawn.h"
#include "process/Handover.h"
#include "process/SharedMemory.h"
#include "process/SystemError.h"
#include "worker/MemoryCeiling.h"
#include "worker/WorkerProcess.h"
#include "worker/WorkerService.h"

namespace kx {

namespace {

/// The signal mask while the zygote waits: only then does the end of a child interrupt it.
sigset_t watchChildren() {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    sigaction(SIGCHLD, &action, nullptr);
    sigset_t children;
    sigemptyset(&children);
    sigaddset(&children, SIGCHLD);
    sigset_t before;
    sigprocmask(SIG_BLOCK, &children, &before);
    return before;
}

/// One descriptor for each worker that lives.
void allowManyDescriptors() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

}  // namespace

int Zygote::run() {
    allowManyDescriptors();
    if (chdir("/") != 0) return 1;
    service_.prepareZygote();
    waitMask_ = watchChildren();
    makeSpare();
    std::string_view const version = service_.version();
    if (!sendPacket(kZygoteSocket, std::as_bytes(std::span(version)))) return 1;
    while (serveOnce()) {
    }
    // The workers are sent SIGKILL when this process is gone.
    return 0;
}

/// Waits for something to do, and does it. False when the application is gone.
bool Zygote::serveOnce() {
    std::vector<pollfd> waited = {{kZygoteSocket, POLLIN, 0}, {kZygoteLifeline, POLLIN, 0}};
    for (Child const& child : children_) waited.push_back({child.control.get(), POLLIN, 0});
    if (ppoll(waited.data(), waited.size(), nullptr, &waitMask_) < 0) {
        if (errno != EINTR) return false;
        reap();
        return true;
    }
    auto child = children_.begin();
    for (std::size_t i = 2; i < waited.size(); ++i) {
        auto const next = std::next(child);
        if (waited[i].revents != 0 && !obeyControl(*child)) end(child);
        child = next;
    }
    if (waited[1].revents != 0) return false;
    return waited[0].revents == 0 || answerRequest();
}

bool Zygote::answerRequest() {
    WorkerRequest request;
    std::vector<OwnedDescriptor> shared;
    if (!receiveValue(kZygoteSocket, request, 0, &shared)) return false;
    std::optional<Fresh> worker;
    OwnedDescriptor ours;
    OwnedDescriptor theirs;
    try {
        std::array<int, 2> ends = {-1, -1};
        if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
            throwSystemError("socketpair");
        }
        ours = OwnedDescriptor(ends[0]);
        theirs = OwnedDescriptor(ends[1]);
        worker = takeWorker(request.sharedMemory, std::move(shared));
    } catch (std::system_error const& failure) {
        return sendPacket(kZygoteSocket, packetOf(ZygoteAnswer{failure.code().value()}));
    }
    children_.push_back({worker->process, std::move(ours)});
    std::array<int, kWorkerDescriptors> const descriptors = {worker->memory.get(),
                                                             worker->wakePipe.get(), theirs.get()};
    return sendPacket(kZygoteSocket, packetOf(ZygoteAnswer{}), descriptors);
}

void Zygote::makeSpare() {
    if (spare_) return;
    try {
        spare_ = makeWorker(nullptr);
    } catch (std::system_error const&) {
        // The next request tries again, and is told why there is none.
    }
}

/// The one in reserve, or a new one that has the memory `shared`. Throws std::system_error where
/// there can be none.
Zygote::Fresh Zygote::takeWorker(std::uint64_t sharedBytes, std::vector<OwnedDescriptor> shared) {
    if (shared.empty()) return spare_ ? *std::exchange(spare_, {}) : makeWorker(nullptr);
    auto const memory = SharedMemory::open(std::move(shared.front()), sharedBytes);
    return makeWorker(&memory);
}

/// Throws std::system_error where there can be none.
Zygote::Fresh Zygote::makeWorker(SharedMemory const* shared) {
    SharedMemory memory = SharedMemory::create(kChannelSize);
    std::array<int, 2> wakePipe = {-1, -1};
    if (pipe2(wakePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) throwSystemError("pipe2");
    OwnedDescriptor readEnd(wakePipe[0]);
    OwnedDescriptor const writeEnd(wakePipe[1]);
    pid_t const zygote = getpid();
    pid_t const process = fork();
    if (process == 0) {
        std::byte* const own = shared == nullptr ? nullptr : shared->data();
        runWorker(service_, {memory.data(), own}, writeEnd.get(), zygote);
    }
    if (process < 0) throwSystemError("fork");
    return Fresh{process, memory.takeDescriptor(), std::move(readEnd)};
}

/// False when the application lets go of the worker.
bool Zygote::obeyControl(Child& child) {
    ControlRequest request;
    if (!receiveValue(child.control.get(), request, 0)) return false;
    ControlReport const report{ControlReport::Kind::limited,
                               limitMemory(child.process, request.memoryLimit)};
    bool const isSent = sendPacket(child.control.get(), packetOf(report));
    // Until now the application has waited for its worker.
    makeSpare();
    return isSent;
}

void Zygote::end(std::list<Child>::iterator child) {
    kill(child->process, SIGKILL);
    waitpid(child->process, nullptr, 0);
    children_.erase(child);
}

/// Tells of the workers that have ended.
void Zygote::reap() {
    int status = 0;
    for (pid_t process = 0; (process = waitpid(-1, &status, WNOHANG)) > 0;) {
        if (spare_ && spare_->process == process) spare_.reset();
        auto const isIt = [process](Child const& child) { return child.process == process; };
        auto const child = std::find_if(children_.begin(), children_.end(), isIt);
        if (child == children_.end()) continue;
        sendPacket(child->control.get(),
                   packetOf(ControlReport{ControlReport::Kind::ended, status}));
        children_.erase(child);
    }
}

}  // namespace kx
