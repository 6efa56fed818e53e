#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "engine/RunControl.h"
#include "engine/Watchdog.h"
#include "host/IsolateRecord.h"

namespace kx {

/// The limits of one host: its time limit, the memory limit of its isolate, and requests to end a
/// run. They hold while a LimitedRun exists.
class RunLimits {
  public:
    explicit RunLimits(IsolateRecord& record) : record_(record) {}

    /// 0 is no limit. Throws std::system_error where the watchdog's thread cannot be started.
    void setTimeLimit(std::chrono::milliseconds limit);

    /// Ends the run that is going on, if any. Any thread.
    void requestEnd(EndReason reason) { control_.requestEnd(reason); }

    /// Why the run that is going on, or the last one, was ended early.
    EndReason endReason() const { return control_.reason(); }

    /// Whether the host may run nothing, because its scripts keep too much: see MemoryPolicy.
    bool isRefused() const { return wasEndedForMemory_ && record_.memory()->isFull(); }

    /// The error text of a script that was not run because isRefused().
    std::u16string refusalText() const;

    /// The error text of a script that was ended: says by what. To be asked for during the run.
    std::u16string endText() const;

  private:
    friend class LimitedRun;

    std::u16string memoryLimitText() const;

    IsolateRecord& record_;
    RunControl control_;
    bool wasEndedForMemory_ = false;
    std::chrono::milliseconds timeLimit_{0};
    std::chrono::milliseconds watchedLimit_{0};  // of the run that is going on or was the last
    std::shared_ptr<Watchdog> watchdog_;         // while there is a time limit
};

/// One run of a host, from construction to destruction: a script, or whatever else may take long.
/// Runs of a host may nest; the limits are those of the outermost. A v8::TryCatch belongs inside.
class LimitedRun {
  public:
    explicit LimitedRun(RunLimits& limits);
    ~LimitedRun();
    LimitedRun(LimitedRun const&) = delete;
    LimitedRun& operator=(LimitedRun const&) = delete;

  private:
    void end();

    RunLimits& limits_;
    RunControl* outer_;                   // the run around this one, of any host of the isolate
    std::shared_ptr<Watchdog> watchdog_;  // while this run's time is watched
};

/// `limit` as far as deadlines can be counted in nanoseconds: from 0 to ten years.
std::chrono::milliseconds countableTimeLimit(std::chrono::milliseconds limit);

}  // namespace kx
