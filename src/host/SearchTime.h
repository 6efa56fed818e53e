#pragma once

#include <algorithm>
#include <chrono>

#include "host/RunLimits.h"

namespace kx {

/// The time limit of a search that consists of many runs.
class SearchTime {
  public:
    /// 0 is no limit.
    explicit SearchTime(std::chrono::milliseconds limit)
        : limit_(countableTimeLimit(limit)), deadline_(Clock::now() + limit_) {}

    std::chrono::milliseconds limit() const { return limit_; }
    bool isUp() const { return limit_.count() > 0 && Clock::now() >= deadline_; }

    /// The time limit of the next run: at least a millisecond, since 0 would be none.
    std::chrono::milliseconds left() const {
        if (limit_.count() == 0) return limit_;
        using std::chrono::milliseconds;
        return std::max(milliseconds(1), std::chrono::ceil<milliseconds>(deadline_ - Clock::now()));
    }

  private:
    using Clock = std::chrono::steady_clock;

    std::chrono::milliseconds limit_;
    Clock::time_point deadline_;
};

}  // namespace kx
