#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "convert/Symbol.h"

namespace kx {

/// One element of a pattern: which code units match it, and how many of them in a row.
struct Item {
    enum class Units : std::uint8_t {
        literal,  ///< `first` or `second`: one ASCII character, a letter in either case
        allBut,   ///< every unit but `first`
        set       ///< the units whose symbols are in `set`
    };
    enum class Count : std::uint8_t {
        one,       ///< exactly one
        optional,  ///< one if possible, else none: `x?`
        loop       ///< as many as possible, perhaps none: `x*`
    };

    bool matches(char16_t unit) const {
        if (units == Units::literal) return unit == first || unit == second;
        if (units == Units::allBut) return unit != first;
        return set[symbolOf(unit)];
    }

    Units units = Units::set;
    Count count = Count::one;
    std::uint8_t loop = 0;  ///< of a loop: its number in the pattern
    char16_t first = 0;
    char16_t second = 0;
    SymbolSet set;  ///< the same units as symbols, whatever `units` is
};

/// One way through a pattern: a plain sequence of items.
struct Branch {
    /// The items of a captured group, `end` excluded.
    struct Group {
        std::size_t begin;
        std::size_t end;
    };
    std::vector<Item> items;
    std::vector<Group> groups;
};

/// A regular expression of the small class that the conversion rules use. It has the meaning that
/// ECMAScript gives it with the flag "i".
///
/// Supported are ASCII literals, `.`, `\s`, `\d`, escaped punctuation, character classes without
/// ranges, `*`, `+` and `?` behind a single character, alternatives, and capturing groups. Groups
/// are neither nested nor repeated, and stand in no alternative. No alternatives stand behind `*`,
/// `+` or `?`. A pattern that can match the empty text is refused.
///
/// There is no nesting, so a pattern is kept as the list of its branches in order of preference:
///
///     (EVAL|EVALUATE)\s*\(   has the branches   EVAL\s*\(   and   EVALUATE\s*\(
///
/// `x+` is kept as the two items `x` and `x*`.
class Pattern {
  public:
    /// The largest number of loops in a pattern that needs backtracking.
    static constexpr std::size_t kMaxBacktrackingLoops = 8;

    /// Throws std::invalid_argument if `text` is not of the supported class.
    explicit Pattern(std::u16string_view text);

    std::vector<Branch> const& branches() const { return branches_; }
    std::size_t groupCount() const { return branches_.front().groups.size(); }
    std::size_t loopCount() const { return loopCount_; }
    std::size_t longestBranch() const { return longestBranch_; }  ///< in items

    /// Whether no loop ever has to give back a unit, so that every branch is matched in one pass.
    ///
    /// `SIN\s*\(([^)]+)\)` is such a pattern: "(" ends the loop `\s*`, ")" ends the loop `[^)]*`,
    /// and neither is in the set of its loop. A shorter loop would leave a unit there that the next
    /// item does not match.
    ///
    /// `\d+.?\d*\^` is not: on "123^" `\d+` first takes "123" and `.?` takes "^". Then nothing is
    /// left for `\^`, and `.?` has to give back what it took.
    bool isOnePass() const { return isOnePass_; }

  private:
    std::vector<Branch> branches_;
    std::size_t loopCount_ = 0;
    std::size_t longestBranch_ = 0;
    bool isOnePass_ = true;
};

}  // namespace kx
