#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "convert/PatternAnalysis.h"
#include "convert/RuleMask.h"
#include "convert/Symbol.h"

namespace kx {

/// Finds in one scan which rules of a list can match at all, given words of which every match holds
/// at least one.
///
/// This is the Shift-And algorithm. Every place of every word is a bit of one machine word. The bit
/// is set while the units read last match the word up to that place. Reading a unit shifts the bits
/// on by one place, begins every word anew, and keeps the bits of the places where the unit may
/// stand.
class WordFilter {
  public:
    /// Words are compared up to this length. Four places tell the words of the rules from nearly
    /// everything else, and all words fit into one machine word.
    static constexpr std::size_t kMaxWordLength = 4;

    /// Registers a word of a rule. Throws std::length_error when the machine word is full.
    void add(Word const& word, std::size_t rule);

    /// The rules of which the text holds a word that ends at or behind the position `from`. Adds
    /// the cost to `steps`.
    RuleMask rulesIn(std::u16string_view text, std::size_t from, std::size_t& steps) const;

  private:
    static constexpr std::size_t kCapacity = 64;

    std::array<std::uint64_t, kSymbolCount> places_{};  ///< for each symbol: where it may stand
    std::uint64_t starts_ = 0;
    std::uint64_t ends_ = 0;
    std::array<std::size_t, kCapacity> rules_{};  ///< for the last place of each word
    std::size_t used_ = 0;
};

}  // namespace kx
