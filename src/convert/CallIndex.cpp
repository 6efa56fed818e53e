#include "convert/CallIndex.h"

#include <limits>
#include <stdexcept>

namespace kx {

void CallIndex::add(std::string const& name, std::size_t rule, bool restoresSpelling) {
    if (nodes.size() + name.size() > std::numeric_limits<std::uint16_t>::max())
        throw std::length_error("too many names in one chain");
    std::size_t node = 0;
    for (std::size_t i = name.size(); i > 0; --i) {
        std::uint8_t const letter = nameLetterOf(static_cast<unsigned char>(name[i - 1]));
        if (nodes[node].next[letter] == 0) {
            nodes[node].next[letter] = static_cast<std::uint16_t>(nodes.size());
            nodes.emplace_back();
        }
        node = nodes[node].next[letter];
    }
    if (nodes[node].name == 0) {
        nodes[node].name = static_cast<std::uint16_t>(names.size());
        names.emplace_back();
    }
    Name& known = names[nodes[node].name];
    (restoresSpelling ? known.restoring : known.rules).add(rule);
}

}  // namespace kx
