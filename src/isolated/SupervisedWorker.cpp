#include "isolated/SupervisedWorker.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <sys/wait.h>
#include <utility>

#include "isolated/Protocol.h"
#include "isolated/WorkerProgram.h"
#include "text/NumberText.h"

namespace kx {

namespace {

/// The bit of each piece that a KxJsSandbox tells of.
constexpr auto kPieces = std::to_array<std::pair<bool KxJsSandbox::*, SandboxPiece>>({
    {&KxJsSandbox::noNewPrivileges, SandboxPiece::noNewPrivileges},
    {&KxJsSandbox::noCapabilities, SandboxPiece::noCapabilities},
    {&KxJsSandbox::landlock, SandboxPiece::landlock},
    {&KxJsSandbox::systemCallFilter, SandboxPiece::systemCallFilter},
});

SandboxPieces piecesOf(KxJsSandbox const& sandbox) {
    SandboxPieces pieces = 0;
    for (auto const& [member, piece] : kPieces) {
        if (sandbox.*member) pieces |= static_cast<SandboxPieces>(piece);
    }
    return pieces;
}

KxJsSandbox sandboxOf(SandboxPieces pieces) {
    KxJsSandbox sandbox;
    for (auto const& [member, piece] : kPieces) {
        sandbox.*member = (pieces & static_cast<SandboxPieces>(piece)) != 0;
    }
    return sandbox;
}

/// Beyond this the clock itself would overflow.
constexpr std::chrono::milliseconds kEndless = std::chrono::hours(24 * 365 * 100);

Deadline::Clock::time_point endOf(std::chrono::milliseconds limit,
                                  std::chrono::milliseconds grace) {
    if (limit <= std::chrono::milliseconds::zero() || limit > kEndless) return Deadline::kNever;
    return Deadline::Clock::now() + limit + grace;
}

std::u16string textOfStatus(int status) {
    if (WIFSIGNALED(status)) return u"signal " + decimalText(WTERMSIG(status));
    return u"status " + decimalText(WEXITSTATUS(status));
}

SupervisedWorker::Ending endingOf(Worker::Outcome outcome, bool isTerminated) {
    using Ending = SupervisedWorker::Ending;
    switch (outcome) {
        case Worker::Outcome::arrived:
            return Ending::answered;
        case Worker::Outcome::late:
            return isTerminated ? Ending::terminated : Ending::timeLimit;
        case Worker::Outcome::ended:
            return Ending::crashed;
        default:
            return Ending::invalid;
    }
}

}  // namespace

SupervisedWorker::SupervisedWorker(KxJsIsolation const& isolation)
    : isolation_(isolation),
      settings_{isolation.worker.empty() ? workerProgram() : isolation.worker, protocolVersion(),
                isolation.memoryLimit, piecesOf(isolation.required)} {
    isolation_.grace = std::clamp(isolation_.grace, std::chrono::milliseconds(0), kEndless);
    if (isolation.sharedMemory != 0) {
        sharedMemory_.emplace(SharedMemory::create(isolation.sharedMemory));
        settings_.sharedMemory = &*sharedMemory_;
    }
    start();
}

void SupervisedWorker::start() {
    auto fresh = std::make_unique<Worker>(settings_);
    sandbox_ = sandboxOf(fresh->pieces());
    std::lock_guard const lock(mutex_);
    worker_ = std::move(fresh);
}

void SupervisedWorker::beginCall(std::span<std::byte const> request,
                                 std::chrono::milliseconds limit) {
    {
        std::lock_guard const lock(mutex_);
        worker_->announce(endOf(limit, isolation_.grace));
        isCalling_ = true;
        isTerminated_ = false;
    }
    worker_->send(request);
}

SupervisedWorker::Ending SupervisedWorker::endCall(std::vector<std::byte>& reply) {
    Worker::Outcome const outcome = worker_->receive(reply);
    Ending ending = Ending::answered;
    {
        std::lock_guard const lock(mutex_);
        isCalling_ = false;
        ending = endingOf(outcome, isTerminated_);
    }
    if (ending == Ending::crashed) {
        auto const status = worker_->endStatus();
        lastEnd_ = status ? textOfStatus(*status) : std::u16string();
    }
    if (ending != Ending::answered) giveUp();
    return ending;
}

void SupervisedWorker::giveUp() {
    std::lock_guard const lock(mutex_);
    isCalling_ = false;
    worker_.reset();
}

void SupervisedWorker::terminate() {
    std::lock_guard const lock(mutex_);
    if (!isCalling_) return;
    isTerminated_ = true;
    worker_->interrupt();
    worker_->endBefore(Deadline::Clock::now() + isolation_.grace);
}

}  // namespace kx
