#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory_resource>
#include <string>
#include <vector>

#include "convert/RuleMask.h"

namespace kx {

/// In place of a position: there is none.
inline constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

/// A "(" of the text and the function names that end before it.
struct Call {
    std::size_t parenthesis;
    std::size_t nameBegin;  ///< `rules` depends on the text from the unit before this one on
    RuleMask rules;         ///< the rules that rewrite calls of one of the names
};

/// Every "(" of a text, in order.
using Calls = std::pmr::vector<Call>;

/// The text of one conversion and the memory that its rules use one after the other. A formula of
/// ordinary length needs no heap memory except for its text.
class Workspace {
    std::array<std::byte, 4096> buffer_;
    std::pmr::monotonic_buffer_resource memory_{buffer_.data(), buffer_.size()};

  public:
    /// `text` is converted in place and must outlive the workspace.
    explicit Workspace(std::u16string& text) : text(text) {}
    Workspace(Workspace const&) = delete;
    Workspace& operator=(Workspace const&) = delete;

    /// The text so far. A rule builds its result in `rewritten` and then swaps the two.
    /// @{
    std::u16string& text;
    std::u16string rewritten;
    /// @}

    /// The calls of the two texts, while rules for calls are applied.
    /// @{
    Calls calls{&memory_};
    Calls rewrittenCalls{&memory_};
    /// @}

    /// The memory of a `Matcher`.
    /// @{
    struct Run {
        std::size_t begin = 1, end = 0;
    };
    std::pmr::vector<std::size_t> itemBegins{&memory_};   ///< of the branch, then its end
    std::pmr::vector<Run> lastRuns{&memory_};             ///< one-pass: of each loop
    std::pmr::vector<std::uint8_t> triedLoops{&memory_};  ///< bit-state: for each position
    /// @}

    /// How much work the conversion was: units read or written, items matched, calls looked at.
    /// Tests hold it to be linear in the length of the formula.
    std::size_t steps = 0;
};

}  // namespace kx
