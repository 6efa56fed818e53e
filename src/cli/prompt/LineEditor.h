#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kx {

/// What the Tab key can put in the place of the word before the cursor.
struct Completion {
    std::size_t wordLength = 0;  ///< characters before the cursor that are replaced
    std::vector<std::u16string> candidates;
};

/// Given the line up to the cursor.
using Completer = std::function<Completion(std::u16string const& beforeCursor)>;

/// Lines from the terminal, edited with the usual keys: cursor, history, completion. Ctrl-C empties
/// the line. One at a time in a process; libedit behind it.
class LineEditor {
  public:
    LineEditor(std::u16string const& prompt, Completer completer);
    ~LineEditor();
    LineEditor(LineEditor const&) = delete;
    LineEditor& operator=(LineEditor const&) = delete;

    /// The next line, without its end; nothing at the end of input (Ctrl-D).
    std::optional<std::u16string> readLine();

    /// Offers `line` to the keys that go back in history.
    void remember(std::u16string const& line);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace kx
