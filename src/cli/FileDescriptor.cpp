#include "cli/FileDescriptor.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "cli/Errors.h"

namespace kx {
namespace {

constexpr mode_t kEveryonesFile = 0666;  // the process's umask takes its part away

}  // namespace

void throwWriteError(std::filesystem::path const& path) {
    int const code = errno;
    throw WorkError("cannot write " + path.string() + ": " + std::generic_category().message(code));
}

FileDescriptor::FileDescriptor(int descriptor, std::filesystem::path path)
    : _mDescriptor(descriptor), _mPath(std::move(path)) {
    if (_mDescriptor < 0) throwWriteError(_mPath);
}

FileDescriptor FileDescriptor::open(std::filesystem::path const& path) {
    return {::open(path.c_str(), O_WRONLY | O_CLOEXEC), path};
}

FileDescriptor FileDescriptor::create(std::filesystem::path const& path,
                                      std::filesystem::path const& goal) {
    return {::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kEveryonesFile), goal};
}

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept
    : _mDescriptor(std::exchange(other._mDescriptor, -1)), _mPath(std::move(other._mPath)) {}

FileDescriptor::~FileDescriptor() {
    if (_mDescriptor >= 0) ::close(_mDescriptor);
}

void FileDescriptor::write(std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t const count = ::write(_mDescriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throwWriteError(_mPath);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void FileDescriptor::setPermissions(mode_t mode) {
    if (::fchmod(_mDescriptor, mode) != 0) throwWriteError(_mPath);
}

void FileDescriptor::sync() {
    if (::fsync(_mDescriptor) != 0) throwWriteError(_mPath);
}

void FileDescriptor::close() {
    if (::close(std::exchange(_mDescriptor, -1)) != 0) throwWriteError(_mPath);
}

}  // namespace kx
