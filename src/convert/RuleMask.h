#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace kx {

/// A set of rules, by their place in a chain.
class RuleMask {
  public:
    static constexpr std::size_t capacity = 128;

    void add(std::size_t rule) { words[rule / 64] |= std::uint64_t{1} << (rule % 64); }
    bool holds(std::size_t rule) const { return (words[rule / 64] >> (rule % 64) & 1) != 0; }

    RuleMask& operator|=(RuleMask const& other) {
        words[0] |= other.words[0];
        words[1] |= other.words[1];
        return *this;
    }

    /// The first rule of the set from `rule` on, or `capacity`.
    std::size_t nextFrom(std::size_t rule) const {
        for (std::size_t word = rule / 64; word < words.size(); ++word) {
            std::uint64_t const rest = words[word] >> (rule % 64) << (rule % 64);
            if (rest != 0) return word * 64 + static_cast<std::size_t>(std::countr_zero(rest));
            rule = 0;
        }
        return capacity;
    }

  private:
    std::array<std::uint64_t, 2> words{};
};

}  // namespace kx
