#include "convert/WordFilter.h"

#include <stdexcept>

namespace kx {

void WordFilter::add(Word const& word, std::size_t rule) {
    std::size_t const length = word.size() < maxWordLength ? word.size() : maxWordLength;
    if (used + length > 64) throw std::length_error("too many words for one filter");
    starts |= std::uint64_t{1} << used;
    for (std::size_t place = 0; place < length; ++place, ++used)
        for (std::size_t symbol = 0; symbol < symbolCount; ++symbol)
            if (word[place][symbol]) places[symbol] |= std::uint64_t{1} << used;
    ends |= std::uint64_t{1} << (used - 1);
    owners[used - 1] = rule;
}

}  // namespace kx
