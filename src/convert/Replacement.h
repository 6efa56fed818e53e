#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// What stands in for a match: literal text with captured groups, written "$1" to "$9", in it.
class Replacement {
  public:
    explicit Replacement(std::u16string_view text);

    /// Appends the replacement; `groupText(number)` gives the text of a group, counted from 1.
    template <class GroupText>
    void appendTo(std::u16string& out, GroupText&& groupText) const {
        for (Piece const& piece : pieces) {
            out.append(piece.literal);
            if (piece.group != 0) out.append(groupText(piece.group));
        }
    }

  private:
    struct Piece {
        std::u16string literal;
        std::size_t group;  ///< that follows the literal; 0: none
    };
    std::vector<Piece> pieces;
};

}  // namespace kx
