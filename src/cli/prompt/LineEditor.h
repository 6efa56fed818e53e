#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kx {

/// What the Tab key can replace the word before the cursor by.
struct Completion {
    std::size_t wordLength = 0;  ///< characters before the cursor that are replaced
    std::vector<std::u16string> candidates;
};

/// Called with the line up to the cursor.
using Completer = std::function<Completion(std::u16string const& beforeCursor)>;

/// Reads lines from the terminal with libedit: cursor keys, history, completion. Ctrl-C empties the
/// line. A process can have one editor at a time.
class LineEditor {
  public:
    LineEditor(std::u16string const& prompt, Completer completer);
    ~LineEditor();
    LineEditor(LineEditor const&) = delete;
    LineEditor& operator=(LineEditor const&) = delete;

    /// The next line, without its line end; nothing at the end of input (Ctrl-D).
    std::optional<std::u16string> readLine();

    /// Adds `line` to the history that the cursor keys show.
    void remember(std::u16string const& line);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace kx
