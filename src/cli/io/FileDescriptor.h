#pragma once

#include <filesystem>
#include <string_view>
#include <sys/types.h>

namespace kx {

/// Owns an open file. Every operation throws WorkError with a path and the system's reason.
class FileDescriptor {
  public:
    /// Opens an existing file for writing.
    static FileDescriptor open(std::filesystem::path const& path);
    /// Creates a file that does not exist yet. Errors name `goal`, the file that it will become:
    /// that is the path that the user knows.
    static FileDescriptor create(std::filesystem::path const& path,
                                 std::filesystem::path const& goal);

    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&&) = delete;
    FileDescriptor(FileDescriptor const&) = delete;
    FileDescriptor& operator=(FileDescriptor const&) = delete;
    ~FileDescriptor();

    void write(std::string_view bytes);
    void setPermissions(mode_t mode);
    /// Returns when the contents are on the disk. A later rename cannot reach it before them.
    void sync();
    void close();

  private:
    FileDescriptor(int descriptor, std::filesystem::path path);
    int descriptor_;
    std::filesystem::path path_;
};

/// Throws WorkError for the current errno.
[[noreturn]] void throwWriteError(std::filesystem::path const& path);

}  // namespace kx
