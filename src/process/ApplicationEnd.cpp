#include "process/ApplicationEnd.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sched.h>

#include "process/Futex.h"

namespace kx {

ApplicationEnd::ApplicationEnd(std::byte* memory, OwnedDescriptor wakePipe,
                               std::size_t longestMessage)
    : memory_(memory),
      words_(channelWords(memory)),
      wakePipe_(std::move(wakePipe)),
      longestMessage_(longestMessage) {}

ApplicationEnd::Outcome ApplicationEnd::receive(std::vector<std::byte>& message,
                                                Deadline& deadline) {
    message.clear();
    while (true) {
        if (Outcome const outcome = awaitTurn(deadline); outcome != Outcome::arrived) {
            return outcome;
        }
        Part const part = lookAtPart();
        // Parts that another one follows are full: else empty parts could go on for ever.
        bool const hasRoom =
            part.length <= kChannelPart && part.length <= longestMessage_ - message.size();
        if (!hasRoom || (part.hasMore && part.length != kChannelPart)) return Outcome::invalid;
        std::byte const* const bytes = workerPart(memory_);
        message.insert(message.end(), bytes, bytes + part.length);
        if (!part.hasMore) return Outcome::arrived;
        sendPart({}, false);
    }
}

ApplicationEnd::Outcome ApplicationEnd::send(std::span<std::byte const> message,
                                             Deadline& deadline) {
    while (message.size() > kChannelPart) {
        sendPart(message.first(kChannelPart), true);
        message = message.subspan(kChannelPart);
        if (Outcome const outcome = awaitTurn(deadline); outcome != Outcome::arrived) {
            return outcome;
        }
        Part const part = lookAtPart();
        if (part.length != 0 || part.hasMore) return Outcome::invalid;
    }
    sendPart(message, false);
    return Outcome::arrived;
}

void ApplicationEnd::interrupt() {
    words_.endedCall.store(calls_.load());
    wakeAll(words_.endedCall);
}

void ApplicationEnd::sendPart(std::span<std::byte const> bytes, bool hasMore) {
    if (!bytes.empty()) std::memcpy(applicationPart(memory_), bytes.data(), bytes.size());
    ChannelLane& lane = words_.application;
    lane.length.store(static_cast<std::uint32_t>(bytes.size()), std::memory_order_relaxed);
    lane.more.store(hasMore ? 1 : 0, std::memory_order_relaxed);
    lane.cpu.store(static_cast<std::uint32_t>(sched_getcpu()), std::memory_order_relaxed);
    lane.turn.store(++turn_);
    if (words_.worker.sleeps.load() != 0) wakeAll(lane.turn);
}

ApplicationEnd::Outcome ApplicationEnd::awaitTurn(Deadline& deadline) {
    auto const begin = SpinBudget::Clock::now();
    bool const hasChanged =
        budget_.spin([this] { return look() != Turn::same; },
                     [this] {
                         return words_.worker.cpu.load(std::memory_order_relaxed) ==
                                static_cast<std::uint32_t>(sched_getcpu());
                     });
    Outcome outcome = Outcome::arrived;
    if (hasChanged) {
        budget_.noteSpin();
    } else {
        outcome = sleepUntilTurn(deadline);
        budget_.noteSleep(SpinBudget::Clock::now() - begin);
    }
    if (outcome == Outcome::arrived && look() != Turn::next) return Outcome::invalid;
    return outcome;
}

ApplicationEnd::Outcome ApplicationEnd::sleepUntilTurn(Deadline& deadline) {
    words_.application.sleeps.store(1);
    Outcome outcome = Outcome::arrived;
    while (outcome == Outcome::arrived && look() == Turn::same) outcome = poll(deadline);
    words_.application.sleeps.store(0, std::memory_order_relaxed);
    // A worker that answers and ends at once has answered.
    if (outcome == Outcome::ended && look() != Turn::same) return Outcome::arrived;
    return outcome;
}

/// Returns Outcome::arrived when there may be something new, another outcome when the wait is over.
ApplicationEnd::Outcome ApplicationEnd::poll(Deadline& deadline) {
    std::array<pollfd, 2> descriptors = {
        {{wakePipe_.get(), POLLIN, 0}, {deadline.descriptor(), POLLIN, 0}}};
    auto const left = deadline.timeLeft();
    int const ready =
        ppoll(descriptors.data(), descriptors.size(), left.has_value() ? &*left : nullptr, nullptr);
    if (ready < 0) return errno == EINTR ? Outcome::arrived : Outcome::ended;
    if (descriptors[1].revents != 0) deadline.clearDescriptor();
    if ((descriptors[0].revents & POLLIN) != 0) {
        std::array<std::byte, 64> bytes;
        [[maybe_unused]] ssize_t const got = read(wakePipe_.get(), bytes.data(), bytes.size());
    } else if (descriptors[0].revents != 0) {
        return Outcome::ended;
    }
    return deadline.isOver() ? Outcome::late : Outcome::arrived;
}

ApplicationEnd::Turn ApplicationEnd::look() const {
    std::uint32_t const turn = words_.worker.turn.load();
    if (turn == turn_) return Turn::same;
    return turn == turn_ + 1 ? Turn::next : Turn::other;
}

ApplicationEnd::Part ApplicationEnd::lookAtPart() const {
    return {words_.worker.length.load(std::memory_order_relaxed),
            words_.worker.more.load(std::memory_order_relaxed) != 0};
}

}  // namespace kx
