#pragma once

#include <cstddef>
#include <string>

namespace kx {

/// A file that is open for reading, or standard input.
class InputFile {
  public:
    /// An empty path stands for standard input. Throws WorkError.
    explicit InputFile(std::string const& path);
    InputFile(InputFile const&) = delete;
    InputFile& operator=(InputFile const&) = delete;
    ~InputFile();

    int descriptor() const { return descriptor_; }

    /// The path, or "standard input"; for messages.
    std::string const& name() const { return name_; }

    /// The size in bytes; 0 for a pipe, a terminal or a device.
    std::size_t size() const;

    /// Whether this is a regular file that standard output writes to. Reading would then meet what
    /// was written.
    bool isStandardOutput() const;

  private:
    int descriptor_;
    std::string name_;
};

}  // namespace kx
