#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "engine/RunControl.h"

namespace kx {

/// Ends runs that take too long. The process has one, with one thread, while some host has a time
/// limit.
class Watchdog {
  public:
    using Clock = std::chrono::steady_clock;

    /// The watchdog of the process, which lives as long as somebody holds it. Any thread.
    static std::shared_ptr<Watchdog> acquire();

    Watchdog();
    ~Watchdog();
    Watchdog(Watchdog const&) = delete;
    Watchdog& operator=(Watchdog const&) = delete;

    /// Ends the run of `control` at `deadline`, unless unwatch() comes before. Any thread.
    void watch(RunControl& control, Clock::time_point deadline);

    /// Stops watching the run of `control`. After the return it is not ended any more.
    void unwatch(RunControl& control);

  private:
    struct Entry {
        RunControl* control;
        Clock::time_point deadline;
    };

    void watchRuns();
    Clock::time_point endOverdueRuns();

    std::mutex mutex_;  // guards everything below
    std::condition_variable changed_;
    std::vector<Entry> entries_;
    Clock::time_point sleepsUntil_ = Clock::time_point::max();
    bool isStopping_ = false;
    std::thread thread_;  // last: it uses the others
};

}  // namespace kx
