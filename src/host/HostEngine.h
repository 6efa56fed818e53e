#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <list>
#include <memory>
#include <string_view>
#include <utility>

#include <v8.h>

#include "engine/RunControl.h"
#include "engine/Watchdog.h"
#include "host/Carriers.h"
#include "host/IsolateRecord.h"

namespace kx {

/// The error text of calls for a host that is not usable where they are made.
inline constexpr std::u16string_view kElsewhere =
    u"The script host belongs to another thread or to another engine isolate";

/// A host's connection to the engine: the isolate it was made in, and its carriers.
class HostEngine {
  public:
    HostEngine() : record_(IsolateRecord::current()) {}

    /// Whether the calling thread may use the host's isolate. Frees what other threads released.
    bool isUsable() const {
        if (!record_->isCurrent()) return false;
        record_->freeParked();
        return true;
    }

    v8::Isolate* isolate() const { return record_->isolate(); }
    Carriers& carriers() { return carriers_; }
    IsolateRecord& record() const { return *record_; }

    /// A run of the host was ended for the memory it needed, or has left too much in use.
    void noteMemoryEnd() { wasEndedForMemory_ = true; }

    /// Whether no script of the host may run, since it climbs on what it keeps: see MemoryWatch.
    bool isRefused() const { return wasEndedForMemory_ && record_->memory()->isFull(); }

    RunControl& control() { return control_; }

    /// Of the run that is going on or was the last: the host's may have been changed since it
    /// began.
    std::chrono::milliseconds watchedLimit() const { return watchedLimit_; }

    void setTimeLimit(std::chrono::milliseconds limit) {
        // The clock counts nanoseconds: the longest limits would be beyond its range.
        constexpr std::chrono::hours kForEver{24 * 365 * 10};
        if (isForkedChild()) return;
        limit = std::clamp<std::chrono::milliseconds>(limit, std::chrono::milliseconds::zero(),
                                                      kForEver);
        watchdog_ = limit.count() == 0 ? nullptr : Watchdog::acquire();
        timeLimit_ = limit;
    }

    /// Begins to watch the time of a run. Returns who watches; null without a time limit.
    std::shared_ptr<Watchdog> watchTime() {
        if (watchdog_ == nullptr) return nullptr;
        watchedLimit_ = timeLimit_;
        watchdog_->watch(control_, Watchdog::Clock::now() + timeLimit_);
        return watchdog_;
    }

    /// Frees what the host gives up, its carriers with it: one entry, whose memory is there already
    /// so that nothing can fail once handles have been taken out of the host.
    void release(std::list<HostRemains> remains) noexcept {
        ++generation_;
        remains.front().carriers = std::exchange(carriers_, Carriers());
        record_->release(std::move(remains));
    }

    /// The entry for what a host leaves when it ends. Once.
    std::list<HostRemains> lastRemains() noexcept { return std::move(lastRemains_); }

    /// Scripts that may have changed anything: counted where they are run.
    /// @{
    std::uint64_t scriptsRun() const { return scriptsRun_; }
    void countScript() { ++scriptsRun_; }
    /// @}

    /// What may change the results of a formula: scripts, and whatever else is counted here.
    /// @{
    std::uint64_t changes() const { return scriptsRun_ + otherChanges_; }
    void countChange() { ++otherChanges_; }
    /// @}

    /// Changes when the host gives something up: scripts compiled before have lost their carriers.
    std::uint64_t generation() const { return generation_; }

    std::shared_ptr<IsolateRecord> const& sharedRecord() const { return record_; }

  private:
    std::shared_ptr<IsolateRecord> record_;
    std::uint64_t generation_ = 0;
    std::uint64_t scriptsRun_ = 0;
    std::uint64_t otherChanges_ = 0;
    Carriers carriers_;
    std::list<HostRemains> lastRemains_ = std::list<HostRemains>(1);
    RunControl control_;
    bool wasEndedForMemory_ = false;
    std::chrono::milliseconds timeLimit_{0};
    std::chrono::milliseconds watchedLimit_{0};
    std::shared_ptr<Watchdog> watchdog_;  // while there is a time limit
};

}  // namespace kx
