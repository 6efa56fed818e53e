#pragma once

#include <chrono>
#include <cstddef>

namespace kx {

/// A line on standard error that shows the progress of a long job. Only a terminal shows it.
class ProgressLine {
  public:
    /// `total` is the size of the whole job in bytes, or 0 where it is unknown.
    explicit ProgressLine(std::size_t total);
    ~ProgressLine();
    ProgressLine(ProgressLine const&) = delete;
    ProgressLine& operator=(ProgressLine const&) = delete;

    /// Shows that `records` records and `bytes` bytes are done, at most ten times a second.
    void show(std::size_t records, std::size_t bytes);
    /// Removes the line before other output.
    void clear();

  private:
    using Clock = std::chrono::steady_clock;

    bool isTerminal_;
    bool isShown_ = false;
    std::size_t total_;
    Clock::time_point start_ = Clock::now();
    Clock::time_point next_ = start_;
};

}  // namespace kx
