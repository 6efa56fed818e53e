#pragma once

#include <chrono>
#include <cstddef>

namespace kx {

/// A line on standard error that says how far a long work is. Shown only where that is a terminal.
class ProgressLine {
  public:
    /// `total` is the size of the whole work in bytes; 0 where nobody knows.
    explicit ProgressLine(std::size_t total);
    ~ProgressLine();
    ProgressLine(ProgressLine const&) = delete;
    ProgressLine& operator=(ProgressLine const&) = delete;

    /// Says that `records` records and `bytes` bytes are done. Cheap to call often.
    void show(std::size_t records, std::size_t bytes);
    /// Takes the line away, so that something else can be written.
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
