#include "cli/io/LineReader.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "cli/io/Errors.h"

namespace kx {
namespace {

constexpr std::size_t kChunkBytes = 65536;

}  // namespace

LineReader::LineReader(int fileDescriptor, std::function<void()> beforeWaiting)
    : fileDescriptor_(fileDescriptor), beforeWaiting_(std::move(beforeWaiting)) {}

bool LineReader::next(std::string& line) {
    std::size_t searched = start_;
    std::size_t end = buffer_.find('\n', searched);
    while (end == std::string::npos && !atEnd_) {
        // No byte is searched twice: the cost of a very long line stays linear.
        std::size_t const unread = buffer_.size() - start_;
        atEnd_ = !fill();
        searched = start_ + unread;
        end = buffer_.find('\n', searched);
    }
    if (end == std::string::npos) {
        if (start_ == buffer_.size()) return false;
        end = buffer_.size();
    }
    line.assign(buffer_, start_, end - start_);
    start_ = end == buffer_.size() ? end : end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    ++lineNumber_;
    return true;
}

bool LineReader::fill() {
    buffer_.erase(0, start_);
    start_ = 0;
    beforeWaiting_();
    std::array<char, kChunkBytes> chunk;
    ssize_t count = 0;
    do {
        count = ::read(fileDescriptor_, chunk.data(), chunk.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        throw WorkError("cannot read standard input: " + std::generic_category().message(errno));
    }
    buffer_.append(chunk.data(), static_cast<std::size_t>(count));
    return count > 0;
}

}  // namespace kx
