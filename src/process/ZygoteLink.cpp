#include "process/ZygoteLink.h"

#include <array>
#include <atomic>
#include <map>
#include <memory>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

#include "process/DetachedSpawn.h"
#include "process/Handover.h"
#include "process/SystemError.h"
#include "process/ThisProcess.h"

namespace kx {

namespace {

constexpr int kPatienceInMilliseconds = 30'000;

/// All links of one process.
struct Links {
    pid_t process = thisProcess();
    std::mutex mutex;
    std::map<std::pair<std::string, std::string>, std::unique_ptr<ZygoteLink>> byProgram;
};

/// A forked process makes its own: the zygotes of its parent belong to the parent, whose mutexes
/// may have been locked at the fork. What it inherited is left alone, and so is what exists at
/// exit: hosts of static objects may still want it.
Links& links() {
    static std::atomic<Links*> current = nullptr;
    Links* known = current.load();
    if (known != nullptr && known->process == thisProcess()) return *known;
    auto fresh = std::make_unique<Links>();
    if (current.compare_exchange_strong(known, fresh.get())) return *fresh.release();
    return *known;
}

/// A descriptor that becomes readable when this process ends, also where a fork of it lives on
/// with copies of its sockets.
OwnedDescriptor openLifeline(int socket) {
    OwnedDescriptor lifeline(static_cast<int>(syscall(SYS_pidfd_open, getpid(), 0)));
    // A kernel without these, or a container that forbids them: the socket has to do.
    if (!lifeline) lifeline = OwnedDescriptor(dup(socket));
    return lifeline;
}

}  // namespace

ZygoteLink& ZygoteLink::of(std::string const& program, std::string const& version) {
    Links& all = links();
    std::lock_guard const lock(all.mutex);
    auto& link = all.byProgram[{program, version}];
    if (!link) link.reset(new ZygoteLink(program, version));
    return *link;
}

ZygoteLink::ZygoteLink(std::string program, std::string version)
    : program_(std::move(program)), version_(std::move(version)) {}

std::vector<OwnedDescriptor> ZygoteLink::takeWorker(SharedMemory const* shared) {
    std::lock_guard const lock(mutex_);
    std::vector<OwnedDescriptor> descriptors;
    if (socket_ && ask(shared, descriptors)) return descriptors;
    start();
    if (ask(shared, descriptors)) return descriptors;
    socket_.close();
    throw std::runtime_error(program_ + " gives no worker");
}

void ZygoteLink::start() {
    socket_.close();
    std::array<int, 2> ends = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throwSystemError("socketpair");
    }
    OwnedDescriptor own(ends[0]);
    OwnedDescriptor theirs(ends[1]);
    OwnedDescriptor const lifeline = openLifeline(theirs.get());
    spawnDetached(program_, theirs.get(), lifeline.get());
    theirs.close();
    std::array<char, kLongestPacket> name{};
    auto const length =
        receivePacket(own.get(), std::as_writable_bytes(std::span(name)), kPatienceInMilliseconds);
    if (length <= 0) throw std::runtime_error(program_ + " ends at its start");
    std::string const version(name.data(), static_cast<std::size_t>(length));
    if (version != version_) {
        throw std::runtime_error(program_ + " is of version " + version + ", not " + version_);
    }
    socket_ = std::move(own);
}

/// Fills `descriptors` with those of a new worker. False where the zygote is not there.
bool ZygoteLink::ask(SharedMemory const* shared, std::vector<OwnedDescriptor>& descriptors) {
    WorkerRequest request;
    std::vector<int> handedOver;
    if (shared != nullptr) {
        request.sharedMemory = shared->size();
        handedOver.push_back(shared->descriptor());
    }
    if (!sendPacket(socket_.get(), packetOf(request), handedOver)) return false;
    ZygoteAnswer answer;
    if (!receiveValue(socket_.get(), answer, kPatienceInMilliseconds, &descriptors)) return false;
    if (answer.error == 0 && descriptors.size() == kWorkerDescriptors) return true;
    errno = answer.error;
    throwSystemError("making a worker process");
}

}  // namespace kx
