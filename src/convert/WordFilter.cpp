#include "convert/WordFilter.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

namespace kx {

void WordFilter::add(Word const& word, std::size_t rule) {
    std::size_t const length = std::min(word.size(), kMaxWordLength);
    if (used_ + length > kCapacity) throw std::length_error("too many words for one filter");
    starts_ |= std::uint64_t{1} << used_;
    for (std::size_t place = 0; place < length; ++place, ++used_) {
        for (std::size_t symbol = 0; symbol < kSymbolCount; ++symbol) {
            if (word[place][symbol]) places_[symbol] |= std::uint64_t{1} << used_;
        }
    }
    ends_ |= std::uint64_t{1} << (used_ - 1);
    rules_[used_ - 1] = rule;
}

RuleMask WordFilter::rulesIn(std::u16string_view text, std::size_t from, std::size_t& steps) const {
    // A word that ends at `from` begins before it.
    std::size_t const begin = from - std::min(from, kMaxWordLength - 1);
    std::uint64_t state = 0;
    std::uint64_t found = 0;
    for (std::size_t i = begin; i < text.size(); ++i) {
        state = ((state << 1) | starts_) & places_[symbolOf(text[i])];
        found |= state;
    }
    steps += text.size() - begin;
    RuleMask rules;
    for (found &= ends_; found != 0; found &= found - 1) {
        rules.add(rules_[static_cast<std::size_t>(std::countr_zero(found))]);
    }
    return rules;
}

}  // namespace kx
