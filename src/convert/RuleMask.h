#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace kx {

/// A set of rules, each given by its position in a list. (std::bitset cannot find the next member.)
class RuleMask {
  public:
    static constexpr std::size_t kCapacity = 128;

    void add(std::size_t rule) { words_[rule / 64] |= std::uint64_t{1} << (rule % 64); }
    bool holds(std::size_t rule) const { return (words_[rule / 64] >> (rule % 64) & 1) != 0; }

    RuleMask& operator|=(RuleMask const& other) {
        words_[0] |= other.words_[0];
        words_[1] |= other.words_[1];
        return *this;
    }

    /// The first rule of the set that is `rule` or comes behind it, or `kCapacity`.
    std::size_t nextFrom(std::size_t rule) const {
        for (std::size_t word = rule / 64; word < words_.size(); ++word) {
            std::uint64_t const rest = words_[word] >> (rule % 64) << (rule % 64);
            if (rest != 0) return word * 64 + static_cast<std::size_t>(std::countr_zero(rest));
            rule = 0;
        }
        return kCapacity;
    }

  private:
    std::array<std::uint64_t, 2> words_{};
};

}  // namespace kx
