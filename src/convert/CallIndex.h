#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "convert/FunctionNameAlphabet.h"
#include "convert/RuleMask.h"
#include "convert/Workspace.h"
#include "text/WhiteSpace.h"

namespace kx {

/// The start of the white space before a "(", which is where a function name ends.
inline std::size_t nameEndBefore(std::u16string_view text, std::size_t parenthesis) {
    while (parenthesis > 0 && isWhiteSpace(text[parenthesis - 1])) --parenthesis;
    return parenthesis;
}

/// Knows the function names that a list of rules looks for, and finds them before a "(".
///
/// The names are kept in a tree of letters, each from its last letter to its first. Names have no
/// word boundary: in "ASIN (" both SIN and ASIN end before the parenthesis. One walk from there to
/// the left, over the white space and down the tree, finds them all.
///
/// A walk costs at most the white space and the longest name. White space stands before one
/// parenthesis only, so the walks from all of them are linear in the length of the text.
class CallIndex {
  public:
    CallIndex() : nodes_(1), names_(1) {}

    /// Registers that a rule looks for a name of capitals, digits and underscores. If the rule
    /// `restoresSpelling`, all that it writes is the name and "(". It is then not reported where
    /// just that stands in the text. Throws std::length_error when the tree is full.
    void add(std::string const& name, std::size_t rule, bool restoresSpelling);

    /// Looks at one "(" of the text. Adds the cost to `steps`.
    Call callAt(std::u16string_view text, std::size_t parenthesis, std::size_t& steps) const;

    /// Appends every "(" of the text. Adds the cost to `steps`.
    void collect(std::u16string_view text, Calls& calls, std::size_t& steps) const;

  private:
    /// A name that is complete at a node.
    struct Name {
        RuleMask rules;      ///< that look for it
        RuleMask restoring;  ///< those that restore its spelling
    };

    struct Node {
        std::array<std::uint16_t, kFunctionNameAlphabetSize> next{};  ///< for each letter; 0: none
        std::uint16_t name = 0;                                       ///< in `names_`; 0: none
    };

    std::vector<Node> nodes_;  ///< the first is the root
    std::vector<Name> names_;
};

}  // namespace kx
