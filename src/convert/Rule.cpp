#include "convert/Rule.h"

#include <algorithm>
#include <stdexcept>

#include "convert/PatternAnalysis.h"

namespace kx {

StartFilter::StartFilter(Pattern const& pattern) {
    auto const words = leadingWords(pattern, kMaxPlaces);
    for (Word const& word : words) places_ = std::min(places_, word.size());
    if (places_ == 0) {  // a match begins with a loop or an optional item: with anything
        places_ = 1;
        allowed_.fill(1);
    }
    for (Word const& word : words) {
        for (std::size_t place = 0; place < std::min(places_, word.size()); ++place) {
            for (std::size_t symbol = 0; symbol < kSymbolCount; ++symbol) {
                if (word[place][symbol]) allowed_[symbol] |= static_cast<std::uint8_t>(1U << place);
            }
        }
    }
}

Rule::Rule(std::u16string_view patternText, std::u16string_view replacementText)
    : pattern(patternText), replacement(replacementText), starts(pattern) {
    if (replacement.lastGroup() > pattern.groupCount()) {
        throw std::invalid_argument("replacement names a group that its pattern does not have");
    }
}

}  // namespace kx
