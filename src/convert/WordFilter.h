#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "convert/PatternAnalysis.h"
#include "convert/RuleMask.h"
#include "convert/Symbol.h"

namespace kx {

/// Finds in one scan which of a chain's rules can match at all.
///
/// The Shift-And algorithm: the places of all words stand side by side in one machine word, a bit
/// each. A bit is set while the text read last matches its word up to that place; reading a unit
/// shifts the bits on by one place, starts every word anew, and keeps the bits of the places at
/// which the unit may stand.
class WordFilter {
  public:
    /// Words are looked at up to this length. Four places tell the words of the rules from nearly
    /// everything else and let all of them fit into one machine word.
    static constexpr std::size_t maxWordLength = 4;

    /// Registers a word of a rule. Throws std::length_error when the machine word is full.
    void add(Word const& word, std::size_t rule);

    /// The rules of which the text holds a word that ends at or behind the position `from`.
    template <class Meter>
    RuleMask rulesIn(std::u16string_view text, std::size_t from, Meter& meter) const {
        std::size_t const overlap = maxWordLength - 1;
        std::size_t const begin = from < overlap ? 0 : from - overlap;
        std::uint64_t state = 0;
        std::uint64_t found = 0;
        for (std::size_t i = begin; i < text.size(); ++i) {
            state = ((state << 1) | starts) & places[symbolOf(text[i])];
            found |= state;
        }
        meter.count(text.size() - begin);
        RuleMask rules;
        for (found &= ends; found != 0; found &= found - 1)
            rules.add(owners[static_cast<std::size_t>(std::countr_zero(found))]);
        return rules;
    }

  private:
    std::array<std::uint64_t, symbolCount> places{};
    std::uint64_t starts = 0;
    std::uint64_t ends = 0;
    std::array<std::size_t, 64> owners{};
    std::size_t used = 0;
};

}  // namespace kx
