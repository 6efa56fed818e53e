#include "worker/WorkerEnd.h"

#include <cstring>
#include <sched.h>
#include <unistd.h>

#include "process/Futex.h"

namespace kx {

WorkerEnd::WorkerEnd(WorkerMemory memory, int wakePipe)
    : memory_(memory), words_(channelWords(memory.channel)), wakePipe_(wakePipe) {}

void WorkerEnd::receive(std::vector<std::byte>& message) {
    message.clear();
    while (true) {
        awaitTurn();
        std::byte const* const bytes = applicationPart(memory_.channel);
        message.insert(message.end(), bytes, bytes + words_.application.length.load());
        if (words_.application.more.load() == 0) break;
        sendPart({}, false);
    }
    received_.fetch_add(1);
}

void WorkerEnd::send(std::span<std::byte const> message) {
    answered_.store(received_.load());
    while (message.size() > kChannelPart) {
        sendPart(message.first(kChannelPart), true);
        message = message.subspan(kChannelPart);
        awaitTurn();
    }
    sendPart(message, false);
}

std::uint32_t WorkerEnd::awaitInterrupt() {
    while (words_.endedCall.load() == endedCall_) waitForChange(words_.endedCall, endedCall_);
    return endedCall_ = words_.endedCall.load();
}

bool WorkerEnd::isServing(std::uint32_t call) const {
    return received_.load() == call && answered_.load() != call;
}

bool WorkerEnd::hasAnswered(std::uint32_t call) const {
    return static_cast<std::int32_t>(answered_.load() - call) >= 0;
}

void WorkerEnd::sendPart(std::span<std::byte const> bytes, bool hasMore) {
    if (!bytes.empty()) std::memcpy(workerPart(memory_.channel), bytes.data(), bytes.size());
    ChannelLane& lane = words_.worker;
    lane.length.store(static_cast<std::uint32_t>(bytes.size()), std::memory_order_relaxed);
    lane.more.store(hasMore ? 1 : 0, std::memory_order_relaxed);
    lane.cpu.store(static_cast<std::uint32_t>(sched_getcpu()), std::memory_order_relaxed);
    lane.turn.store(++turn_);
    if (words_.application.sleeps.load() == 0) return;
    char const byte = 0;
    [[maybe_unused]] ssize_t const written = write(wakePipe_, &byte, 1);
}

void WorkerEnd::awaitTurn() {
    auto const begin = SpinBudget::Clock::now();
    if (sharesProcessor() && budget_.isSpinning() && begin >= nextStep_) stepAside();
    if (budget_.spin([this] { return hasTurn(); }, [this] { return sharesProcessor(); })) {
        return budget_.noteSpin();
    }
    words_.worker.sleeps.store(1);
    while (!hasTurn()) waitForChange(words_.application.turn, turn_ - 1);
    words_.worker.sleeps.store(0, std::memory_order_relaxed);
    budget_.noteSleep(SpinBudget::Clock::now() - begin);
}

/// Whether the application has answered; the worker's message n with number n.
bool WorkerEnd::hasTurn() const { return words_.application.turn.load() == turn_; }

bool WorkerEnd::sharesProcessor() const {
    return words_.application.cpu.load(std::memory_order_relaxed) ==
           static_cast<std::uint32_t>(sched_getcpu());
}

/// Moves this thread to another processor, where there is one. The kernel wakes a thread where its
/// waker runs, and two that spin for each other on one processor would stay there, each waiting for
/// the other's time to be up. Not more often than the kernel moves threads itself.
void WorkerEnd::stepAside() {
    nextStep_ = SpinBudget::Clock::now() + std::chrono::milliseconds(1);
    cpu_set_t allowed;
    if (sched_getaffinity(0, sizeof allowed, &allowed) != 0) return;
    cpu_set_t others = allowed;
    CPU_CLR(static_cast<unsigned>(sched_getcpu()), &others);
    if (CPU_COUNT(&others) == 0 || sched_setaffinity(0, sizeof others, &others) != 0) return;
    sched_setaffinity(0, sizeof allowed, &allowed);
}

}  // namespace kx
