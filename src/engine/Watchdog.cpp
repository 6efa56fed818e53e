#include "engine/Watchdog.h"

#include <algorithm>

#include "engine/Engine.h"
#include "process/SignalsBlocked.h"

namespace kx {

namespace {

/// A run that goes on after a request does something that the script has left, such as promise
/// jobs.
constexpr std::chrono::milliseconds kAskAgainAfter{20};

}  // namespace

std::shared_ptr<Watchdog> Watchdog::acquire() {
    // Never destroyed: hosts that are static objects release the watchdog at exit.
    static auto& mutex = *new std::mutex;
    static auto& current = *new std::weak_ptr<Watchdog>;
    std::lock_guard const lock(mutex);
    std::shared_ptr<Watchdog> watchdog = current.lock();
    if (watchdog == nullptr) {
        // A forked child has no thread that could be joined.
        watchdog = std::shared_ptr<Watchdog>(new Watchdog, [](Watchdog* last) {
            if (!isForkedChild()) delete last;
        });
        current = watchdog;
    }
    return watchdog;
}

Watchdog::Watchdog() {
    // The application chooses the threads that handle its signals.
    SignalsBlocked const whileStarting;
    thread_ = std::thread([this] { watchRuns(); });
}

Watchdog::~Watchdog() {
    {
        std::lock_guard const lock(mutex_);
        isStopping_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void Watchdog::watch(RunControl& control, Clock::time_point deadline) {
    bool isFirst = false;
    {
        std::lock_guard const lock(mutex_);
        entries_.push_back({&control, deadline});
        isFirst = deadline < sleepsUntil_;
        if (isFirst) sleepsUntil_ = deadline;
    }
    // Most runs end long before their deadline, and the thread sleeps until an earlier one already:
    // it is rarely woken.
    if (isFirst) changed_.notify_one();
}

void Watchdog::unwatch(RunControl& control) {
    std::lock_guard const lock(mutex_);
    std::erase_if(entries_, [&control](Entry const& entry) { return entry.control == &control; });
}

void Watchdog::watchRuns() {
    std::unique_lock lock(mutex_);
    while (!isStopping_) {
        sleepsUntil_ = endOverdueRuns();
        if (sleepsUntil_ == Clock::time_point::max()) {
            changed_.wait(lock);
        } else {
            changed_.wait_until(lock, sleepsUntil_);
        }
    }
}

Watchdog::Clock::time_point Watchdog::endOverdueRuns() {
    Clock::time_point const now = Clock::now();
    Clock::time_point next = Clock::time_point::max();
    for (Entry& entry : entries_) {
        if (entry.deadline <= now) {
            entry.control->requestEnd(EndReason::timeLimit);
            entry.deadline = now + kAskAgainAfter;
        }
        next = std::min(next, entry.deadline);
    }
    return next;
}

}  // namespace kx
