#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "process/ChannelMemory.h"
#include "process/Deadline.h"
#include "process/OwnedDescriptor.h"
#include "process/SpinBudget.h"

namespace kx {

/// The application's end of a channel to a worker. It trusts nothing that the worker writes: each
/// of the worker's words is read once and checked, and messages are copied before anyone reads
/// them.
class ApplicationEnd {
  public:
    enum class Outcome : std::uint8_t {
        arrived,
        late,    ///< the deadline is over
        ended,   ///< the worker has ended
        invalid  ///< the worker has broken the protocol
    };

    /// Over the `memory` of a channel, kChannelSize bytes. `wakePipe` becomes readable when the
    /// worker has sent to a sleeping application, and hangs up when the worker ends. A message from
    /// the worker of more than `longestMessage` bytes is invalid.
    ApplicationEnd(std::byte* memory, OwnedDescriptor wakePipe, std::size_t longestMessage);

    /// Waits for what the worker sends next. `message` is replaced.
    Outcome receive(std::vector<std::byte>& message, Deadline& deadline);
    /// Tells interrupt() that a message is about to be sent.
    void announce() { calls_.fetch_add(1); }
    /// Sends `message`, which was announced. The worker's last one must have been received.
    Outcome send(std::span<std::byte const> message, Deadline& deadline);
    /// Asks the worker to end its work for the message that was announced last. Any thread may
    /// call.
    void interrupt();

  private:
    enum class Turn : std::uint8_t { same, next, other };
    struct Part {
        std::size_t length;
        bool hasMore;
    };

    void sendPart(std::span<std::byte const> bytes, bool hasMore);
    Outcome awaitTurn(Deadline& deadline);
    Outcome sleepUntilTurn(Deadline& deadline);
    Outcome poll(Deadline& deadline);
    Turn look() const;
    Part lookAtPart() const;

    std::byte* memory_;
    ChannelWords& words_;
    OwnedDescriptor wakePipe_;
    std::size_t longestMessage_;
    std::uint32_t turn_ = 0;
    std::atomic<std::uint32_t> calls_ = 0;
    SpinBudget budget_;
};

}  // namespace kx
