#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Writes `bytes` to `path`. An existing file is replaced in one step, once the new one is
/// complete; it keeps its permissions, and stays as it is when something fails. A device or a pipe
/// is written into. Throws WorkError with path and reason.
void replaceFile(std::filesystem::path const& path, std::string_view bytes);

/// The same, piece by piece: commit() replaces `path` by what was written. Without commit(), the
/// destructor drops it.
class FileReplacement {
  public:
    explicit FileReplacement(std::filesystem::path const& path);
    ~FileReplacement();
    FileReplacement(FileReplacement const&) = delete;
    FileReplacement& operator=(FileReplacement const&) = delete;

    void write(std::string_view bytes);
    void commit();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

struct NamedFile {
    std::string name;
    std::string bytes;
};

/// Puts `files` into `directory`, which is made where only its last part is missing. The files are
/// moved there, in order, once all of them are complete; a full disk therefore changes nothing, and
/// where a move fails, every file is still either the old one or the new one. Other files in the
/// directory are left alone. Throws WorkError with path and reason.
void replaceFiles(std::filesystem::path const& directory, std::vector<NamedFile> const& files);

}  // namespace kx
