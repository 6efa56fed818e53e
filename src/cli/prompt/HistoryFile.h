#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kx {

/// The file that keeps the lines typed at the prompt: below XDG_STATE_HOME, which defaults to
/// ~/.local/state. Nothing where there is no home directory.
std::optional<std::filesystem::path> historyPath();

/// A file of lines that only its owner can read. It keeps the last 1000 lines and 256 KiB.
///
/// libedit has a history file of its own (H_LOAD, H_SAVE). A session saves it as a whole at its
/// end, so that a killed session loses its lines, and of two sessions at a time the first to end.
/// Here a line is appended when it is entered.
class HistoryFile {
  public:
    /// Reads the file, or creates it, and shortens it where it is too long. Throws WorkError.
    explicit HistoryFile(std::filesystem::path path);

    /// The lines of earlier sessions, oldest first.
    std::vector<std::string> const& lines() const { return lines_; }

    /// Appends a line, which must not contain a line feed. Lines above 4096 bytes are left out.
    /// Throws WorkError.
    void add(std::string const& line);

  private:
    std::filesystem::path path_;
    std::vector<std::string> lines_;
};

}  // namespace kx
