#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kx {

/// Where the lines that were typed at the prompt are kept: below XDG_STATE_HOME, which defaults to
/// ~/.local/state. Nothing where there is no home directory.
std::optional<std::filesystem::path> historyPath();

/// A file of lines, readable by its owner only. It keeps the last 1000 lines and 256 KiB.
/// Sessions that run side by side each add their lines.
class HistoryFile {
  public:
    /// Reads what is there, and shortens a file that has become too long. Throws WorkError.
    explicit HistoryFile(std::filesystem::path path);

    /// The lines of earlier sessions, oldest first.
    std::vector<std::string> const& lines() const { return lines_; }

    /// Adds a line, which must not hold a line feed. Very long ones are left out. Throws WorkError.
    void add(std::string const& line);

  private:
    std::filesystem::path path_;
    std::vector<std::string> lines_;
};

}  // namespace kx
