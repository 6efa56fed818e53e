#include "process/Worker.h"

#include <chrono>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <sys/socket.h>

#include "process/Handover.h"
#include "process/SystemError.h"
#include "process/ThisProcess.h"
#include "process/ZygoteLink.h"

namespace kx {

namespace {

using namespace std::chrono_literals;

/// More than a loaded machine needs for any of these steps.
constexpr auto kPatience = 30s;
constexpr int kPatienceInMilliseconds = 30'000;
/// How long the zygote may take to tell of a worker's end.
constexpr int kEndNewsInMilliseconds = 100;

/// A reply is no longer than the worker's memory; a text may take twice its bytes on the way.
std::uint64_t longestReply(std::uint64_t memoryLimit) {
    constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
    return memoryLimit > (kMost - kChannelPart) / 2 ? kMost : 2 * memoryLimit + kChannelPart;
}

}  // namespace

struct Worker::Parts {
    OwnedDescriptor memory;
    OwnedDescriptor wakePipe;
    OwnedDescriptor control;
};

Worker::Worker(WorkerSettings const& settings) : Worker(takeFromZygote(settings), settings) {}

Worker::Worker(Parts parts, WorkerSettings const& settings)
    : memory_(SharedMemory::open(std::move(parts.memory), kChannelSize)),
      control_(std::move(parts.control)),
      end_(memory_.data(), std::move(parts.wakePipe), longestReply(settings.memoryLimit)),
      owner_(thisProcess()) {
    memory_.takeDescriptor();
    awaitReadiness(settings);
    limitMemory(settings.memoryLimit);
}

Worker::~Worker() {
    // In a fork of the application the socket is the parent's too.
    if (!isOfOtherProcess()) shutdown(control_.get(), SHUT_RDWR);
}

Worker::Parts Worker::takeFromZygote(WorkerSettings const& settings) {
    std::vector<OwnedDescriptor> descriptors =
        ZygoteLink::of(settings.program, settings.version).takeWorker(settings.sharedMemory);
    return {std::move(descriptors[0]), std::move(descriptors[1]), std::move(descriptors[2])};
}

void Worker::awaitReadiness(WorkerSettings const& settings) {
    deadline_.set(Deadline::Clock::now() + kPatience);
    std::vector<std::byte> report;
    if (end_.receive(report, deadline_) != Outcome::arrived || report.size() != sizeof pieces_) {
        throw std::runtime_error("the worker process could not be prepared");
    }
    std::memcpy(&pieces_, report.data(), sizeof pieces_);
    if ((settings.requiredPieces & ~pieces_) != 0) {
        throw std::runtime_error("this system lacks a required piece of the sandbox");
    }
}

void Worker::limitMemory(std::uint64_t bytes) {
    ControlReport report;
    if (!sendPacket(control_.get(), packetOf(ControlRequest{bytes})) ||
        !receiveValue(control_.get(), report, kPatienceInMilliseconds) ||
        report.kind != ControlReport::Kind::limited) {
        throw std::runtime_error("the worker process ended at its start");
    }
    if (report.value == 0) return;
    errno = report.value;
    throwSystemError("limiting a worker's memory");
}

void Worker::announce(Deadline::Clock::time_point end) {
    deadline_.set(end);
    end_.announce();
}

void Worker::send(std::span<std::byte const> request) {
    if (isOfOtherProcess()) outcome_ = Outcome::ended;
    if (outcome_ == Outcome::arrived) outcome_ = end_.send(request, deadline_);
}

Worker::Outcome Worker::receive(std::vector<std::byte>& reply) {
    if (outcome_ == Outcome::arrived) outcome_ = end_.receive(reply, deadline_);
    return outcome_;
}

bool Worker::isOfOtherProcess() const { return thisProcess() != owner_; }

std::optional<int> Worker::endStatus() {
    ControlReport report;
    if (isOfOtherProcess() || !receiveValue(control_.get(), report, kEndNewsInMilliseconds) ||
        report.kind != ControlReport::Kind::ended) {
        return std::nullopt;
    }
    return report.value;
}

}  // namespace kx
