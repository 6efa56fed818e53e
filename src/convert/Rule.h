#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "convert/Pattern.h"
#include "convert/Replacement.h"
#include "convert/Symbol.h"

namespace kx {

/// Tells at a glance that no match starts at a position: what may stand at each of the first
/// places of a match, whichever the alternative.
class StartFilter {
  public:
    static constexpr std::size_t maxPlaces = 4;

    explicit StartFilter(Pattern const& pattern);

    std::size_t length() const { return places; }

    /// Needs `length()` units from the position on.
    bool mayStartAt(std::u16string_view text, std::size_t position) const {
        if ((allowed[symbolOf(text[position])] & 1) == 0) return false;
        for (std::size_t place = 1; place < places; ++place)
            if ((allowed[symbolOf(text[position + place])] >> place & 1) == 0) return false;
        return true;
    }

  private:
    std::array<std::uint8_t, symbolCount> allowed{};  ///< for each symbol a bit for each place
    std::size_t places = 1;
};

/// A compiled regex rule.
struct Rule {
    Rule(std::u16string_view pattern, std::u16string_view replacement)
        : pattern(pattern), replacement(replacement), starts(this->pattern) {}

    Pattern pattern;
    Replacement replacement;
    StartFilter starts;
};

}  // namespace kx
