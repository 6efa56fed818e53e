#include "cli/io/FileDescriptor.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "cli/io/Errors.h"

namespace kx {
namespace {

constexpr mode_t kEveryonesFile = 0666;  // the umask removes its bits

}  // namespace

void throwWriteError(std::filesystem::path const& path) {
    int const code = errno;
    throw WorkError("cannot write " + path.string() + ": " + std::generic_category().message(code));
}

FileDescriptor::FileDescriptor(int descriptor, std::filesystem::path path)
    : descriptor_(descriptor), path_(std::move(path)) {
    if (descriptor_ < 0) throwWriteError(path_);
}

FileDescriptor FileDescriptor::open(std::filesystem::path const& path) {
    return {::open(path.c_str(), O_WRONLY | O_CLOEXEC), path};
}

FileDescriptor FileDescriptor::create(std::filesystem::path const& path,
                                      std::filesystem::path const& goal) {
    return {::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kEveryonesFile), goal};
}

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

FileDescriptor::~FileDescriptor() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

void FileDescriptor::write(std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t const count = ::write(descriptor_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throwWriteError(path_);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void FileDescriptor::setPermissions(mode_t mode) {
    if (::fchmod(descriptor_, mode) != 0) throwWriteError(path_);
}

void FileDescriptor::sync() {
    if (::fsync(descriptor_) != 0) throwWriteError(path_);
}

void FileDescriptor::close() {
    if (::close(std::exchange(descriptor_, -1)) != 0) throwWriteError(path_);
}

}  // namespace kx
