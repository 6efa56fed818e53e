#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "process/ChannelMemory.h"
#include "process/SpinBudget.h"

namespace kx {

/// What a worker has in common with the application.
struct WorkerMemory {
    std::byte* channel;
    std::byte* own;  ///< memory of the application's; null where there is none
};

/// The worker's end of a channel, which trusts the application.
class WorkerEnd {
  public:
    /// Over the channel in `memory`. Writing to the descriptor `wakePipe` wakes the application.
    WorkerEnd(WorkerMemory memory, int wakePipe);

    /// Waits for the next message. `message` is replaced.
    void receive(std::vector<std::byte>& message);
    void send(std::span<std::byte const> message);

    /// kChannelArea bytes that the application sees too.
    std::byte* area() const { return channelArea(memory_.channel); }
    /// Memory of the application's, or null.
    std::byte* sharedMemory() const { return memory_.own; }

    /// Sleeps until the application asks to end the work for a message, and returns the message's
    /// number. For a thread of its own, as are the next two.
    std::uint32_t awaitInterrupt();
    /// Whether message `call` has come and was not answered.
    bool isServing(std::uint32_t call) const;
    bool hasAnswered(std::uint32_t call) const;

  private:
    void sendPart(std::span<std::byte const> bytes, bool hasMore);
    void awaitTurn();
    bool hasTurn() const;
    bool sharesProcessor() const;
    void stepAside();

    WorkerMemory memory_;
    ChannelWords& words_;
    int wakePipe_;
    std::uint32_t turn_ = 0;
    std::uint32_t endedCall_ = 0;
    std::atomic<std::uint32_t> received_ = 0;
    std::atomic<std::uint32_t> answered_ = 0;
    SpinBudget budget_;
    SpinBudget::Clock::time_point nextStep_{};
};

}  // namespace kx
