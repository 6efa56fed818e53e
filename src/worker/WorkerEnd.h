#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "isolated/ChannelMemory.h"
#include "isolated/SpinBudget.h"

namespace kx {

/// The worker's end of a channel, which trusts the application.
class WorkerEnd {
  public:
    /// Over the `memory` of a channel. Writing to the descriptor `bell` wakes the application.
    WorkerEnd(std::byte* memory, int bell);

    /// Waits for the next message. `message` is replaced.
    void receive(std::vector<std::byte>& message);
    void send(std::span<std::byte const> message);

    /// Sleeps until the application has asked once more to end what runs. For a thread of its own.
    void awaitInterrupt();

  private:
    void sendPart(std::span<std::byte const> bytes, bool hasMore);
    void awaitTurn();
    bool hasTurn() const;
    bool sharesProcessor() const;
    void stepAside();

    std::byte* memory_;
    ChannelWords& words_;
    int bell_;
    std::uint32_t turn_ = 0;
    std::uint32_t interrupts_ = 0;
    SpinBudget budget_;
    SpinBudget::Clock::time_point nextStep_{};
};

}  // namespace kx
