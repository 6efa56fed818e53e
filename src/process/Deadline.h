#pragma once

#include <atomic>
#include <chrono>
#include <ctime>
#include <optional>

#include "process/OwnedDescriptor.h"

namespace kx {

/// When a call has to be over. The thread that makes the call sets it; any thread may bring it
/// forward, and so wakes the one that waits.
class Deadline {
  public:
    using Clock = std::chrono::steady_clock;
    static constexpr Clock::time_point kNever = Clock::time_point::max();

    /// Throws std::system_error where there is no descriptor for it.
    Deadline();

    void set(Clock::time_point time);
    void bringForward(Clock::time_point time);
    bool isOver() const;

    /// What ppoll() waits for beside the time: readable once the deadline was brought forward.
    int descriptor() const { return event_.get(); }
    void clearDescriptor();
    /// The time that is left, for ppoll(); nothing where it never ends.
    std::optional<timespec> timeLeft() const;

  private:
    Clock::time_point time() const;

    OwnedDescriptor event_;
    std::atomic<Clock::rep> time_;
};

}  // namespace kx
