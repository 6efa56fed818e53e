#include "convert/CallIndex.h"

#include <utility>

namespace kx {

void CallIndex::add(std::string const& name, std::size_t rule, bool restoresSpelling) {
    std::uint32_t node = 0;
    for (std::size_t i = name.size(); i > 0; --i) {
        auto const symbol = static_cast<Symbol>(name[i - 1]);
        std::uint32_t next = childOf(node, symbol);
        if (next == 0) {
            next = static_cast<std::uint32_t>(nodes.size());
            nodes.emplace_back().symbol = symbol;
            if (node == 0)
                roots[symbol] = next;
            else
                nodes[next].sibling = std::exchange(nodes[node].child, next);
        }
        node = next;
    }
    nodes[node].ends = true;
    (restoresSpelling ? nodes[node].restoring : nodes[node].rules).add(rule);
}

}  // namespace kx
