#pragma once

#include <atomic>
#include <thread>

#include "host/KxJsParser.h"

namespace kx {

/// While an object of this class exists, an interrupt (Ctrl-C) ends the formula that runs, and not
/// the program. To end a run, locks are needed, which a signal handler must not take; a thread of
/// this class waits for the signal instead. Some built-in calls cannot be ended; the third
/// interrupt in one run therefore ends the program.
///
/// Create it before other threads start: they inherit the blocked signal.
class InterruptWatch {
  public:
    InterruptWatch();
    ~InterruptWatch();
    InterruptWatch(InterruptWatch const&) = delete;
    InterruptWatch& operator=(InterruptWatch const&) = delete;

    /// From now on, interrupts end the run of `parser`, which has to outlive this object.
    void watch(KxJsParser& parser);
    /// Resets the count of interrupts. Call it before each run.
    void beginRun() { interrupts_ = 0; }

  private:
    void wait(KxJsParser& parser);

    int signals_;
    int end_;
    std::atomic<int> interrupts_ = 0;
    std::thread thread_;
};

}  // namespace kx
