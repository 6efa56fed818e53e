#include "host/RunLimits.h"

#include <algorithm>
#include <cstdint>
#include <new>

#include "engine/Engine.h"
#include "host/EndText.h"
#include "text/NumberText.h"

namespace kx {

namespace {

std::u16string byteCountText(std::int64_t count) {
    constexpr std::int64_t kMebibyte = 1 << 20;
    if (count % kMebibyte == 0) return decimalText(count / kMebibyte) + u" MiB";
    return decimalText(count) + u" bytes";
}

}  // namespace

void RunLimits::setTimeLimit(std::chrono::milliseconds limit) {
    if (isForkedChild()) return;
    limit = countableTimeLimit(limit);
    watchdog_ = limit.count() == 0 ? nullptr : Watchdog::acquire();
    timeLimit_ = limit;
}

std::u16string RunLimits::memoryLimitText() const {
    return byteCountText(static_cast<std::int64_t>(record_.memory()->limit()));
}

std::u16string RunLimits::refusalText() const {
    return u"The script was not run: its host's scripts keep more than the memory limit of " +
           memoryLimitText();
}

std::u16string RunLimits::endText() const {
    switch (endReason()) {
        case EndReason::timeLimit:
            return timeLimitText(watchedLimit_);
        case EndReason::memoryLimit:
            return u"The script was ended: it needed more than the memory limit of " +
                   memoryLimitText();
        case EndReason::terminated:
            return std::u16string(kTerminatedText);
        default:
            return u"The script was ended: the application terminated the engine's execution";
    }
}

LimitedRun::LimitedRun(RunLimits& limits)
    : limits_(limits), outer_(limits.record_.watchMemory(&limits.control_)) {
    if (!limits_.control_.begin(limits_.record_.isolate())) return;
    if (limits_.watchdog_ == nullptr) return;
    limits_.watchedLimit_ = limits_.timeLimit_;
    try {
        limits_.watchdog_->watch(limits_.control_, Watchdog::Clock::now() + limits_.timeLimit_);
    } catch (std::bad_alloc const&) {
        end();  // the destructor is not called
        throw;
    }
    watchdog_ = limits_.watchdog_;
}

LimitedRun::~LimitedRun() {
    if (watchdog_ != nullptr) watchdog_->unwatch(limits_.control_);
    end();
}

void LimitedRun::end() {
    IsolateRecord& record = limits_.record_;
    record.watchMemory(outer_);
    EndReason const reason = limits_.control_.end();
    if (reason != EndReason::none) {
        record.dropPromiseJobs();
        record.isolate()->CancelTerminateExecution();
    }
    MemoryWatch* const memory = record.memory();
    if (memory == nullptr || outer_ != nullptr) return;
    if (reason == EndReason::memoryLimit) {
        limits_.wasEndedForMemory_ = true;
        memory->collectAfterRun();
    } else if (memory->endRun()) {
        limits_.wasEndedForMemory_ = true;
    }
}

std::chrono::milliseconds countableTimeLimit(std::chrono::milliseconds limit) {
    constexpr std::chrono::milliseconds kLongest = std::chrono::hours(24 * 365 * 10);
    return std::clamp(limit, std::chrono::milliseconds::zero(), kLongest);
}

}  // namespace kx
