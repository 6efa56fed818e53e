#include "convert/CallIndex.h"

#include <limits>
#include <stdexcept>

namespace kx {

void CallIndex::add(std::string const& name, std::size_t rule, bool restoresSpelling) {
    if (nodes_.size() + name.size() > std::numeric_limits<std::uint16_t>::max()) {
        throw std::length_error("too many names in one chain");
    }
    std::size_t node = 0;
    for (std::size_t i = name.size(); i > 0; --i) {
        std::uint8_t const letter = functionNameLetter(static_cast<unsigned char>(name[i - 1]));
        if (nodes_[node].next[letter] == 0) {
            nodes_[node].next[letter] = static_cast<std::uint16_t>(nodes_.size());
            nodes_.emplace_back();
        }
        node = nodes_[node].next[letter];
    }
    if (nodes_[node].name == 0) {
        nodes_[node].name = static_cast<std::uint16_t>(names_.size());
        names_.emplace_back();
    }
    Name& known = names_[nodes_[node].name];
    (restoresSpelling ? known.restoring : known.rules).add(rule);
}

Call CallIndex::callAt(std::u16string_view text, std::size_t parenthesis,
                       std::size_t& steps) const {
    Call call{parenthesis, nameEndBefore(text, parenthesis), {}};
    bool isSpelled = call.nameBegin == parenthesis;
    std::size_t node = 0;
    for (; call.nameBegin > 0; --call.nameBegin) {
        char16_t const unit = text[call.nameBegin - 1];
        node = nodes_[node].next[functionNameLetter(unit)];
        if (node == 0) break;
        isSpelled = isSpelled && unit == capitalOf(unit);
        if (nodes_[node].name == 0) continue;
        Name const& name = names_[nodes_[node].name];
        call.rules |= name.rules;
        if (!isSpelled) call.rules |= name.restoring;
    }
    steps += 1 + parenthesis - call.nameBegin;
    return call;
}

void CallIndex::collect(std::u16string_view text, Calls& calls, std::size_t& steps) const {
    steps += text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'(') calls.push_back(callAt(text, i, steps));
    }
}

}  // namespace kx
