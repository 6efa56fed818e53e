#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Makes `bytes` the contents of `path`. A file that is there is replaced in one step, once the new
/// one is written completely, and keeps its permissions; a failure leaves it as it was. A path that
/// names a device or a pipe is written into. Throws WorkError with path and reason.
void replaceFile(std::filesystem::path const& path, std::string_view bytes);

/// The same, piece by piece: the contents that take the place of `path` at commit(), and are
/// dropped without it.
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

/// Puts `files` into `directory`, which is made if only its last part is missing. All of them are
/// written before the first one takes its place, and each takes its place in one step; when one
/// cannot, those before it are taken back. Other files in the directory are left alone.
/// Throws WorkError with path and reason.
void replaceFiles(std::filesystem::path const& directory, std::vector<NamedFile> const& files);

}  // namespace kx
