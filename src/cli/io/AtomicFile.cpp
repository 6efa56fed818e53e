#include "cli/io/AtomicFile.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <sys/stat.h>
#include <system_error>

#include "cli/io/Errors.h"
#include "cli/io/FileDescriptor.h"

namespace kx {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void throwWriteError(fs::path const& path, std::error_code error) {
    throw WorkError("cannot write " + path.string() + ": " + error.message());
}

fs::path directoryOf(fs::path const& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// A directory for unfinished files. The destructor removes it with its contents.
class StagingDirectory {
  public:
    /// Made inside `parent`, so that a file moves from one to the other in one step, on one file
    /// system. An error names `goal`.
    StagingDirectory(fs::path const& parent, fs::path const& goal) {
        std::string pattern = (parent / ".kxjs-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) kx::throwWriteError(goal);
        path_ = pattern;
    }
    StagingDirectory(StagingDirectory const&) = delete;
    StagingDirectory& operator=(StagingDirectory const&) = delete;
    ~StagingDirectory() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    fs::path const& path() const { return path_; }

  private:
    fs::path path_;
};

void writeNewFile(fs::path const& path, fs::path const& goal, std::string_view bytes) {
    FileDescriptor file = FileDescriptor::create(path, goal);
    file.write(bytes);
    file.sync();
    file.close();
}

void moveInPlace(fs::path const& from, fs::path const& to) {
    std::error_code error;
    fs::rename(from, to, error);
    if (error) throwWriteError(to, error);
}

void writeAll(fs::path const& directory, fs::path const& goal,
              std::vector<NamedFile> const& files) {
    for (NamedFile const& file : files) {
        writeNewFile(directory / file.name, goal / file.name, file.bytes);
    }
}

void makeDirectoryWith(fs::path const& directory, std::vector<NamedFile> const& files) {
    StagingDirectory const staging(directoryOf(directory), directory);
    fs::path const finished = staging.path() / "pages";
    std::error_code error;
    if (!fs::create_directory(finished, error)) throwWriteError(directory, error);
    writeAll(finished, directory, files);
    moveInPlace(finished, directory);
}

}  // namespace

struct FileReplacement::State {
    std::optional<StagingDirectory> staging;  ///< none: the target is written into
    fs::path target;
    std::optional<FileDescriptor> file;
};

FileReplacement::FileReplacement(fs::path const& path) : state_(std::make_unique<State>()) {
    struct stat status {};
    bool const exists = ::stat(path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) kx::throwWriteError(path);
    if (exists && S_ISDIR(status.st_mode)) {
        throwWriteError(path, std::make_error_code(std::errc::is_a_directory));
    }
    if (exists && !S_ISREG(status.st_mode)) {
        state_->file.emplace(FileDescriptor::open(path));
        return;
    }
    // A link stays a link; the file that it leads to is replaced.
    state_->target = exists ? fs::canonical(path) : path;
    state_->staging.emplace(directoryOf(state_->target), path);
    state_->file.emplace(FileDescriptor::create(state_->staging->path() / "file", path));
    if (exists) state_->file->setPermissions(status.st_mode & 07777);
}

FileReplacement::~FileReplacement() = default;

void FileReplacement::write(std::string_view bytes) { state_->file->write(bytes); }

void FileReplacement::commit() {
    if (!state_->staging) return state_->file->close();
    state_->file->sync();
    state_->file->close();
    moveInPlace(state_->staging->path() / "file", state_->target);
}

void replaceFile(fs::path const& path, std::string_view bytes) {
    FileReplacement replacement(path);
    replacement.write(bytes);
    replacement.commit();
}

void replaceFiles(fs::path const& directory, std::vector<NamedFile> const& files) {
    // "pages/" is the same directory as "pages", but has an empty last part.
    fs::path const goal = directory.has_filename() ? directory : directory.parent_path();
    std::error_code error;
    fs::file_status const status = fs::status(goal, error);
    if (status.type() == fs::file_type::not_found) return makeDirectoryWith(goal, files);
    if (error) throwWriteError(goal, error);
    if (status.type() != fs::file_type::directory) {
        throwWriteError(goal, std::make_error_code(std::errc::not_a_directory));
    }
    for (NamedFile const& file : files) {
        if (fs::is_directory(goal / file.name)) {
            throwWriteError(goal / file.name, std::make_error_code(std::errc::is_a_directory));
        }
    }
    StagingDirectory const staging(goal, goal);
    writeAll(staging.path(), goal, files);
    for (NamedFile const& file : files) moveInPlace(staging.path() / file.name, goal / file.name);
}

}  // namespace kx
