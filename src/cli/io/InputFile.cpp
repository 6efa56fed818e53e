#include "cli/io/InputFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "cli/io/Errors.h"

namespace kx {

InputFile::InputFile(std::string const& path)
    : descriptor_(path.empty() ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
      name_(path.empty() ? "standard input" : path) {
    if (descriptor_ >= 0) return;
    throw WorkError("cannot read " + path + ": " + std::generic_category().message(errno));
}

InputFile::~InputFile() {
    if (descriptor_ != STDIN_FILENO) ::close(descriptor_);
}

std::size_t InputFile::size() const {
    struct stat status {};
    bool const isFile = ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    return isFile ? static_cast<std::size_t>(status.st_size) : 0;
}

bool InputFile::isStandardOutput() const {
    struct stat status {};
    struct stat standard {};
    return ::fstat(descriptor_, &status) == 0 && ::fstat(STDOUT_FILENO, &standard) == 0 &&
           S_ISREG(status.st_mode) && status.st_dev == standard.st_dev &&
           status.st_ino == standard.st_ino;
}

}  // namespace kx
