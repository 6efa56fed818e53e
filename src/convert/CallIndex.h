#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "convert/Matcher.h"
#include "convert/RuleMask.h"
#include "convert/Symbol.h"
#include "library/WhiteSpace.h"

namespace kx {

/// A "(" of the text with a name before it.
struct Call {
    std::size_t parenthesis;
    std::size_t nameEnd;  ///< where the white space before the parenthesis begins
    RuleMask rules;       ///< that such a name concerns
};

/// Knows the names that the rules of a chain look for in front of a "(", and finds them.
///
/// The names are kept backwards in a tree of letters. From a "(" back over white space and then
/// down the tree costs at most the white space and the longest name, and meets every name that
/// ends there, since names have no word boundary. White space is walked over once, as the
/// parentheses before and behind it are different ones.
class CallIndex {
  public:
    CallIndex() : nodes(1) {}

    /// Registers that a rule looks for a name. A rule that `restoresSpelling` writes nothing but
    /// the name itself and "(": it is passed over where just that stands in the text already.
    void add(std::string const& name, std::size_t rule, bool restoresSpelling);

    /// Brings `calls`, which is right for the text before `from`, up to date from there on.
    template <class Meter>
    void update(std::u16string_view text, std::size_t from, std::vector<Call>& calls,
                Meter& meter) const {
        while (!calls.empty() && calls.back().parenthesis >= from) calls.pop_back();
        meter.count(text.size() - from);
        for (std::size_t i = from; i < text.size(); ++i) {
            if (text[i] != u'(') continue;
            Call const call = callAt(text, i, meter);
            if (call.rules.nextFrom(0) != RuleMask::capacity) calls.push_back(call);
        }
    }

  private:
    struct Node {
        Symbol symbol = 0;
        std::uint32_t child = 0;    ///< index of a node; 0: none
        std::uint32_t sibling = 0;  ///< index of a node; 0: none
        RuleMask rules;             ///< of the name that is complete here
        RuleMask restoring;         ///< those of them that restore spelling
        bool ends = false;
    };

    std::uint32_t childOf(std::uint32_t parent, Symbol symbol) const {
        if (parent == 0) return roots[symbol];
        std::uint32_t node = nodes[parent].child;
        while (node != 0 && nodes[node].symbol != symbol) node = nodes[node].sibling;
        return node;
    }

    template <class Meter>
    Call callAt(std::u16string_view text, std::size_t parenthesis, Meter& meter) const {
        Call call{parenthesis, parenthesis, {}};
        while (call.nameEnd > 0 && isWhiteSpace(text[call.nameEnd - 1])) --call.nameEnd;
        bool spelled = call.nameEnd == parenthesis;
        std::uint32_t node = 0;
        std::size_t i = call.nameEnd;
        for (; i > 0; --i) {
            Symbol const symbol = symbolOf(text[i - 1]);
            node = childOf(node, symbol);
            if (node == 0) break;
            spelled = spelled && text[i - 1] == symbol;
            if (!nodes[node].ends) continue;
            call.rules |= nodes[node].rules;
            if (!spelled) call.rules |= nodes[node].restoring;
        }
        meter.count(parenthesis - i);
        return call;
    }

    std::vector<Node> nodes;  ///< the first stands for the empty name
    std::array<std::uint32_t, symbolCount> roots{};
};

}  // namespace kx
