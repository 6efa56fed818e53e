#pragma once

#include <atomic>
#include <thread>

#include "host/KxJsParser.h"

namespace kx {

/// While it lives, an interrupt (Ctrl-C) ends the formula that `parser` is running instead of the
/// program. Ending a run takes locks, which a signal handler must not do, so a thread of its own
/// waits for the signal. A formula that is inside a built-in call which never looks cannot be
/// ended: the third interrupt in one run ends the program.
///
/// Make it before anything that starts threads, so that none of them receives the signal.
class InterruptWatch {
  public:
    InterruptWatch();
    ~InterruptWatch();
    InterruptWatch(InterruptWatch const&) = delete;
    InterruptWatch& operator=(InterruptWatch const&) = delete;

    /// Interrupts from now on are meant for `parser`, which has to live as long.
    void watch(KxJsParser& parser);
    /// A run begins: interrupts are counted anew.
    void beginRun() { interrupts_ = 0; }

  private:
    void wait(KxJsParser& parser);

    int signals_;
    int end_;
    std::atomic<int> interrupts_ = 0;
    std::thread thread_;
};

}  // namespace kx
