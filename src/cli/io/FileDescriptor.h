#pragma once

#include <filesystem>
#include <string_view>
#include <sys/types.h>

namespace kx {

/// An open file that is closed with its owner. Every operation throws WorkError with a path and
/// the system's reason.
class FileDescriptor {
  public:
    /// Opens what is there, for writing.
    static FileDescriptor open(std::filesystem::path const& path);
    /// Makes a new file, and throws where there is one. Errors name `goal`: the file that it is to
    /// become, which is what the caller's user knows.
    static FileDescriptor create(std::filesystem::path const& path,
                                 std::filesystem::path const& goal);

    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&&) = delete;
    FileDescriptor(FileDescriptor const&) = delete;
    FileDescriptor& operator=(FileDescriptor const&) = delete;
    ~FileDescriptor();

    void write(std::string_view bytes);
    void setPermissions(mode_t mode);
    /// Returns when the contents are on the disk, so that no later step can overtake them.
    void sync();
    void close();

  private:
    FileDescriptor(int descriptor, std::filesystem::path path);
    int descriptor_;
    std::filesystem::path path_;
};

/// Throws the WorkError for the current errno.
[[noreturn]] void throwWriteError(std::filesystem::path const& path);

}  // namespace kx
