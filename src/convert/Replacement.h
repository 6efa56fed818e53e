#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// What stands in for a match: literal text with captured groups, written "$1" to "$9", in it.
class Replacement {
  public:
    struct Piece {
        std::u16string literal;
        std::size_t group = 0;  ///< that follows the literal; 0: none
    };

    explicit Replacement(std::u16string_view text);

    std::vector<Piece> const& pieces() const { return parts; }

    /// Whether the replacement of just this text leaves it as it is, whatever the groups hold.
    bool isAlways(std::u16string_view text) const {
        return parts.size() == 1 && parts[0].group == 0 && parts[0].literal == text;
    }

  private:
    std::vector<Piece> parts;
};

}  // namespace kx
