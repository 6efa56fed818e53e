#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "convert/Pattern.h"
#include "convert/Replacement.h"
#include "convert/Symbol.h"

namespace kx {

/// Excludes most start positions without matching: it knows the symbols that can stand at the first
/// few places of a match, whatever the branch.
class StartFilter {
  public:
    static constexpr std::size_t kMaxPlaces = 4;

    explicit StartFilter(Pattern const& pattern);

    /// How many places are compared; at least one.
    std::size_t length() const { return places_; }

    /// Needs `length()` units of the text from the position on.
    bool mayStartAt(std::u16string_view text, std::size_t position) const {
        if ((allowed_[symbolOf(text[position])] & 1) == 0) return false;
        for (std::size_t place = 1; place < places_; ++place) {
            if ((allowed_[symbolOf(text[position + place])] >> place & 1) == 0) return false;
        }
        return true;
    }

  private:
    std::array<std::uint8_t, kSymbolCount> allowed_{};  ///< for each symbol a bit for each place
    std::size_t places_ = kMaxPlaces;
};

/// A compiled regex rule.
struct Rule {
    /// Throws std::invalid_argument if the pattern is not supported, or if the replacement names a
    /// group that the pattern does not have.
    Rule(std::u16string_view patternText, std::u16string_view replacementText);

    Pattern pattern;
    Replacement replacement;
    StartFilter starts;
};

}  // namespace kx
