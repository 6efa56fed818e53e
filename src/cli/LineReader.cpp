#include "cli/LineReader.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "cli/Errors.h"

namespace kx {
namespace {

constexpr std::size_t kChunkBytes = 65536;

}  // namespace

LineReader::LineReader(int fileDescriptor, std::function<void()> beforeWaiting)
    : _mFileDescriptor(fileDescriptor), _mBeforeWaiting(std::move(beforeWaiting)) {}

bool LineReader::next(std::string& line) {
    std::size_t searched = _mStart;
    std::size_t end = _mBuffer.find('\n', searched);
    while (end == std::string::npos && !_mAtEnd) {
        // Bytes already looked at are not searched again, so that one very long line stays cheap.
        std::size_t const unread = _mBuffer.size() - _mStart;
        _mAtEnd = !fill();
        searched = _mStart + unread;
        end = _mBuffer.find('\n', searched);
    }
    if (end == std::string::npos) {
        if (_mStart == _mBuffer.size()) return false;
        end = _mBuffer.size();
    }
    line.assign(_mBuffer, _mStart, end - _mStart);
    _mStart = end == _mBuffer.size() ? end : end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    ++_mLineNumber;
    return true;
}

bool LineReader::fill() {
    _mBuffer.erase(0, _mStart);
    _mStart = 0;
    _mBeforeWaiting();
    std::array<char, kChunkBytes> chunk;
    ssize_t count = 0;
    do {
        count = ::read(_mFileDescriptor, chunk.data(), chunk.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        throw WorkError("cannot read standard input: " + std::generic_category().message(errno));
    }
    _mBuffer.append(chunk.data(), static_cast<std::size_t>(count));
    return count > 0;
}

}  // namespace kx
