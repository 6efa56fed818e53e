#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <string>
#include <string_view>
#include <vector>

#include "convert/NameLetter.h"
#include "convert/RuleMask.h"
#include "convert/Symbol.h"
#include "text/WhiteSpace.h"

namespace kx {

/// A "(" of the text and the names that end before it.
struct Call {
    std::size_t parenthesis;
    std::size_t nameBegin;  ///< of the longest beginning of a name, backwards; the unit before it
                            ///< is the last that `rules` was learnt from
    RuleMask rules;         ///< those that look for one of the names
};

/// Where the white space before a "(" begins, and a name may end.
inline std::size_t nameEndBefore(std::u16string_view text, std::size_t parenthesis) {
    while (parenthesis > 0 && isWhiteSpace(text[parenthesis - 1])) --parenthesis;
    return parenthesis;
}

/// Every "(" of a text, in order.
using Calls = std::pmr::vector<Call>;

/// For each literal piece of a replacement the calls in it.
using LiteralCalls = std::vector<Calls>;

/// Knows the names that the rules of a chain look for in front of a "(".
///
/// The names are kept backwards in a tree of letters. From a "(" back over white space and then
/// down the tree costs at most the white space and the longest name, and meets every name that
/// ends there, since names have no word boundary. No white space is walked over from two
/// parentheses, as it stands before one of them only.
class CallIndex {
  public:
    CallIndex() : nodes(1), names(1) {}

    /// Registers that a rule looks for a name of capitals, digits and underscores. A rule that
    /// `restoresSpelling` writes nothing but the name itself and "(": it is left out where just
    /// that stands in the text already. Throws std::length_error when the tree is full.
    void add(std::string const& name, std::size_t rule, bool restoresSpelling);

    /// Looks at one "(" of the text.
    template <class Meter>
    Call callAt(std::u16string_view text, std::size_t parenthesis, Meter& meter) const;

    /// Appends every "(" of the text.
    template <class Meter>
    void collect(std::u16string_view text, Calls& calls, Meter& meter) const {
        meter.count(2 * text.size());
        auto const count = std::count(text.begin(), text.end(), u'(');
        calls.reserve(calls.size() + static_cast<std::size_t>(count + count / 2 + 4));
        for (std::size_t i = 0; i < text.size(); ++i)
            if (text[i] == u'(') calls.push_back(callAt(text, i, meter));
    }

  private:
    /// A name that is complete at a node.
    struct Name {
        RuleMask rules;      ///< that look for it
        RuleMask restoring;  ///< those that restore its spelling
    };

    struct Node {
        std::array<std::uint16_t, nameLetterCount> next{};  ///< node for each letter; 0: none
        std::uint16_t name = 0;                             ///< number in `names`; 0: none
    };

    std::vector<Node> nodes;  ///< the first is where every name begins, from its end
    std::vector<Name> names;
};

template <class Meter>
Call CallIndex::callAt(std::u16string_view text, std::size_t parenthesis, Meter& meter) const {
    Call call{parenthesis, nameEndBefore(text, parenthesis), {}};
    bool spelled = call.nameBegin == parenthesis;
    std::size_t node = 0;
    for (; call.nameBegin > 0; --call.nameBegin) {
        char16_t const unit = text[call.nameBegin - 1];
        node = nodes[node].next[nameLetterOf(unit)];
        if (node == 0) break;
        spelled = spelled && unit == capitalOf(unit);
        if (nodes[node].name == 0) continue;
        Name const& name = names[nodes[node].name];
        call.rules |= name.rules;
        if (!spelled) call.rules |= name.restoring;
    }
    meter.count(1 + parenthesis - call.nameBegin);
    return call;
}

}  // namespace kx
