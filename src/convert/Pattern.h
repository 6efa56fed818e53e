#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "convert/Symbol.h"

/// Regular expressions of the small class that the rules are written in, compiled to a program
/// for the matcher.
///
/// Accepted are literals, `.`, `\s`, `\d`, an escaped punctuation mark, character classes of
/// these without ranges, greedy `*`, `+` and `?` after a single character, alternatives, and
/// groups that capture. A group stands neither in a group nor inside an alternative, so every
/// match sets every group. No pattern matches the empty text. All else is refused.
namespace kx {

struct Instruction {
    enum class Code : std::uint8_t {
        unit,      ///< this ASCII unit, a letter in either case
        set,       ///< one unit of the set
        run,       ///< as many units of the set as there are, at least `minimum`
        until,     ///< as many units as there are other than `capital`, at least `minimum`
        optional,  ///< one unit of the set if there is one
        split,     ///< try `target` first, then `other`
        jump,      ///< go on at `target`
        save,      ///< keep the position in `slot`
        match
    };
    Code code = Code::match;
    char16_t capital = 0;  ///< of a unit; the unit itself if it is no letter
    char16_t small = 0;
    std::uint16_t set = 0;      ///< index in the pattern's sets
    std::uint16_t minimum = 0;  ///< of a run or until
    std::uint16_t slot = 0;     ///< of a save; of a loop or split, its number among these
    std::ptrdiff_t target = 0;  ///< index of an instruction, while compiling relative to this one
    std::ptrdiff_t other = 0;
};

class Pattern {
  public:
    static constexpr std::size_t maxGroups = 3;
    static constexpr std::size_t maxRuns = 4;    ///< loops of a pattern whose loops keep all
    static constexpr std::size_t maxSplits = 8;  ///< choices of a pattern whose loops give back

    /// Throws std::invalid_argument where the text is outside the accepted class.
    explicit Pattern(std::u16string_view text);

    std::vector<Instruction> const& program() const { return instructions; }
    SymbolSet const& set(Instruction const& instruction) const { return sets[instruction.set]; }

    /// Whether a loop may have to give back what it took. Then loops are compiled into splits;
    /// else into runs.
    bool givesBack() const { return loopsGiveBack; }

    /// The symbols that a match can begin with.
    SymbolSet const& firstSymbols() const { return first; }

  private:
    std::vector<Instruction> instructions;
    std::vector<SymbolSet> sets;
    SymbolSet first;
    bool loopsGiveBack = false;
};

}  // namespace kx
