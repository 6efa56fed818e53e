#include "convert/Rule.h"

#include <algorithm>

#include "convert/PatternAnalysis.h"

namespace kx {

StartFilter::StartFilter(Pattern const& pattern) {
    auto words = firstPlaces(pattern, maxPlaces);
    if (words.empty()) words.push_back({pattern.firstSymbols()});
    places = maxPlaces;
    for (Word const& word : words) places = std::min(places, word.size());
    for (Word const& word : words)
        for (std::size_t place = 0; place < places; ++place)
            for (std::size_t symbol = 0; symbol < symbolCount; ++symbol)
                if (word[place][symbol]) allowed[symbol] |= static_cast<std::uint8_t>(1U << place);
}

}  // namespace kx
