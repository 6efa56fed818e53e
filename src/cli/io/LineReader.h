#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace kx {

/// Reads a file descriptor line by line. A line ends at LF or CR LF, which are not part of it. The
/// last line may lack its line end.
class LineReader {
  public:
    /// `beforeWaiting` is called before every read, which may block: it flushes pending output.
    LineReader(int fileDescriptor, std::function<void()> beforeWaiting);

    /// Stores the next line in `line`; returns false at the end. Throws WorkError.
    bool next(std::string& line);

    /// The number of the line that next() returned last, from 1.
    std::size_t lineNumber() const { return lineNumber_; }

  private:
    bool fill();

    int fileDescriptor_;
    std::function<void()> beforeWaiting_;
    std::string buffer_;
    std::size_t start_ = 0;  ///< of the next line in the buffer
    bool atEnd_ = false;
    std::size_t lineNumber_ = 0;
};

}  // namespace kx
