#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "convert/CallIndex.h"

namespace kx {

/// The text that replaces a match: literal text and captured groups, written "$1" to "$9".
class Replacement {
  public:
    struct Piece {
        std::u16string literal;
        std::size_t group = 0;  ///< the group behind the literal; 0: none
        Calls calls;            ///< the calls in the literal
    };

    explicit Replacement(std::u16string_view text);

    /// Finds the calls in the literals, for rules whose `Rewriting` keeps track of calls.
    void findCalls(CallIndex const& index);

    std::vector<Piece> const& pieces() const { return pieces_; }

    /// The largest number of a group; 0: there is none.
    std::size_t lastGroup() const;

    /// Whether the replacement is this very text.
    bool isJust(std::u16string_view text) const {
        return pieces_.size() == 1 && pieces_[0].group == 0 && pieces_[0].literal == text;
    }

  private:
    std::vector<Piece> pieces_;
};

}  // namespace kx
