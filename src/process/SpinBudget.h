#pragma once

#include <chrono>

namespace kx {

/// How long waiting for the other side may keep the processor busy, before the kernel is asked to
/// wake the waiter. Spinning saves a wake-up where the other side answers soon, and wastes the time
/// where it does not, so the time follows what the last waits were like.
class SpinBudget {
  public:
    using Clock = std::chrono::steady_clock;

    /// Spins until `isDone` is true, and returns whether it is. Gives up early where `isUseless`:
    /// the other side needs this processor.
    template <class Done, class Useless>
    bool spin(Done isDone, Useless isUseless) {
        if (isDone()) return true;
        if (budget_ <= Clock::duration::zero() || isUseless()) return false;
        Clock::time_point const end = Clock::now() + budget_;
        do {
            for (int i = 0; i < kLooksPerClock; ++i) {
                __builtin_ia32_pause();
                if (isDone()) return true;
            }
        } while (!isUseless() && Clock::now() < end);
        return false;
    }

    bool isSpinning() const { return budget_ > Clock::duration::zero(); }

    /// Tells that spinning was enough, or else how long the wait has been in all. After spinning
    /// the clock is not read: that would take much of the time that spinning saves.
    /// @{
    void noteSpin() { budget_ = kLongest; }
    void noteSleep(Clock::duration wait) {
        budget_ = wait <= kLongest ? kLongest : budget_ / 2;
        if (budget_ < kShortest) budget_ = Clock::duration::zero();
    }
    /// @}

  private:
    static constexpr int kLooksPerClock = 16;
    /// Longer than the worker needs for a block of copied columns. A wake-up for each block would
    /// take more time than the block.
    static constexpr Clock::duration kLongest = std::chrono::microseconds(150);
    static constexpr Clock::duration kShortest = std::chrono::microseconds(5);

    Clock::duration budget_ = kLongest;
};

}  // namespace kx
