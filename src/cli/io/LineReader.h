#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace kx {

/// Reads a file descriptor line by line. A line ends at LF or CR LF, which are not part of it; the
/// last one may end with the input.
class LineReader {
  public:
    /// `beforeWaiting` is called before every read, which may wait: the moment to flush answers.
    LineReader(int fileDescriptor, std::function<void()> beforeWaiting);

    /// Puts the next line into `line`; false at the end. Throws WorkError when reading fails.
    bool next(std::string& line);

    /// Number of the line that next() gave last, counted from 1.
    std::size_t lineNumber() const { return lineNumber_; }

  private:
    bool fill();

    int fileDescriptor_;
    std::function<void()> beforeWaiting_;
    std::string buffer_;
    std::size_t start_ = 0;  ///< where the next line begins in the buffer
    bool atEnd_ = false;
    std::size_t lineNumber_ = 0;
};

}  // namespace kx
