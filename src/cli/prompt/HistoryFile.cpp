#include "cli/prompt/HistoryFile.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "cli/io/AtomicFile.h"
#include "cli/io/Errors.h"

namespace kx {
namespace {

constexpr std::size_t kMostLines = 1000;
constexpr std::size_t kMostBytes = std::size_t{256} << 10;
constexpr std::size_t kLongestLine = 4096;
constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

[[noreturn]] void fail(std::filesystem::path const& path) {
    throw WorkError(path.string() + ": " + std::generic_category().message(errno));
}

std::string contentsOf(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The last lines of `bytes`, within the limits.
std::string_view tailOf(std::string_view bytes) {
    std::size_t lines = 0;
    for (std::size_t at = bytes.size(); at > 0; --at) {
        bool const isLineStart = bytes[at - 1] == '\n' && at < bytes.size();
        if ((isLineStart && ++lines == kMostLines) || bytes.size() - at >= kMostBytes) {
            // The limit of bytes may cut a line; the tail begins after it.
            std::size_t const start = isLineStart ? at : bytes.find('\n', at) + 1;
            return bytes.substr(start);
        }
    }
    return bytes;
}

int openForAppending(std::filesystem::path const& path) {
    int const descriptor =
        ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, kOwnerOnly);
    if (descriptor < 0) fail(path);
    return descriptor;
}

}  // namespace

std::optional<std::filesystem::path> historyPath() {
    char const* const state = std::getenv("XDG_STATE_HOME");
    // The XDG rules ignore a relative path.
    if (state != nullptr && state[0] == '/') {
        return std::filesystem::path(state) / "kxjs" / "history";
    }
    char const* const home = std::getenv("HOME");
    if (home == nullptr || home[0] != '/') return std::nullopt;
    return std::filesystem::path(home) / ".local" / "state" / "kxjs" / "history";
}

HistoryFile::HistoryFile(std::filesystem::path path) : path_(std::move(path)) {
    std::error_code error;
    std::filesystem::create_directories(path_.parent_path(), error);
    if (error) throw WorkError(path_.parent_path().string() + ": " + error.message());
    int const descriptor = openForAppending(path_);
    ::fchmod(descriptor, kOwnerOnly);  // others may be able to read an existing file
    ::close(descriptor);

    std::string const bytes = contentsOf(path_);
    std::string_view kept = tailOf(bytes);
    if (kept.size() < bytes.size()) replaceFile(path_, kept);
    while (!kept.empty()) {
        std::size_t const end = std::min(kept.find('\n'), kept.size());
        if (end > 0) lines_.emplace_back(kept.substr(0, end));
        kept.remove_prefix(std::min(end + 1, kept.size()));
    }
}

void HistoryFile::add(std::string const& line) {
    if (line.size() > kLongestLine) return;
    int const descriptor = openForAppending(path_);
    std::string const bytes = line + "\n";
    // One call per line: lines of two sessions do not mix.
    ssize_t const written = ::write(descriptor, bytes.data(), bytes.size());
    int const code = errno;
    ::close(descriptor);
    errno = code;
    if (written != static_cast<ssize_t>(bytes.size())) fail(path_);
}

}  // namespace kx
