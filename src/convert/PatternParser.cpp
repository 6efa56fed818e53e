#include "convert/PatternParser.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace kx {

namespace {

template <class T>
void append(std::vector<T>& to, std::vector<T> const& from) {
    to.insert(to.end(), from.begin(), from.end());
}

/// The first ASCII unit of a set, or 128.
char16_t firstUnitOf(SymbolSet const& set) {
    char16_t unit = 0;
    while (unit < 128 && !set[unit]) ++unit;
    return unit;
}

Item itemOf(SymbolSet const& set) {
    Item item;
    item.set = set;
    if (char16_t const unit = firstUnitOf(set); unit < 128 && set == literalSet(unit)) {
        item.units = Item::Units::literal;
        item.first = capitalOf(unit);
        item.second = smallOf(unit);
    } else if (char16_t const missing = firstUnitOf(~set); (~set).count() == 1 && missing < 128) {
        item.units = Item::Units::allBut;
        item.first = missing;
    }
    return item;
}

bool hasChoice(Branch const& branch) {
    return std::any_of(branch.items.begin(), branch.items.end(),
                       [](Item const& item) { return item.count != Item::Count::one; });
}

}  // namespace

std::vector<Branch> PatternParser::parse() {
    std::vector<Branch> branches = sequence();
    while (skip(u'|')) {
        append(branches, sequence());
        if (!branches.front().groups.empty() || !branches.back().groups.empty()) {
            refuse("a group inside an alternative");
        }
    }
    if (!atEnd()) refuse("unmatched )");
    return branches;
}

std::vector<Branch> PatternParser::sequence() {
    std::vector<Branch> branches(1);
    while (!atEnd() && !atOneOf(u"|)")) {
        if (!skip(u'(')) {
            Items const more = item();
            for (Branch& branch : branches) append(branch.items, more);
            continue;
        }
        // Each branch so far goes on with each alternative of the group. This keeps the order of
        // preference only if the branch has no other choice: it would come before the alternatives.
        std::vector<Items> const alternatives = group();
        if (alternatives.size() > 1 && std::any_of(branches.begin(), branches.end(), hasChoice)) {
            refuse("alternatives behind a loop or an optional character");
        }
        std::vector<Branch> longer;
        for (Branch const& branch : branches) {
            for (Items const& alternative : alternatives) {
                Branch& next = longer.emplace_back(branch);
                append(next.items, alternative);
                next.groups.push_back({branch.items.size(), next.items.size()});
            }
        }
        branches = std::move(longer);
    }
    return branches;
}

std::vector<PatternParser::Items> PatternParser::group() {
    if (atOneOf(u"?")) refuse("a group that does not capture");
    std::vector<Items> alternatives{items()};
    while (skip(u'|')) alternatives.push_back(items());
    if (!skip(u')')) refuse("a group in a group, or an unclosed one");
    if (atOneOf(u"*+?{")) refuse("a repeated group");
    return alternatives;
}

PatternParser::Items PatternParser::items() {
    Items result;
    while (!atEnd() && !atOneOf(u"|()")) append(result, item());
    return result;
}

PatternParser::Items PatternParser::item() {
    Item const one = itemOf(character());
    Item loop = one;
    loop.count = Item::Count::loop;
    Item optional = one;
    optional.count = Item::Count::optional;

    Items result{one};
    if (skip(u'*')) {
        result = {loop};
    } else if (skip(u'+')) {
        result = {one, loop};
    } else if (skip(u'?')) {
        result = {optional};
    } else {
        return result;
    }
    if (atOneOf(u"*+?{")) refuse("a quantifier after a quantifier");
    return result;
}

SymbolSet PatternParser::character() {
    if (skip(u'.')) return anyButLineEndSet();
    if (skip(u'[')) return characterClass();
    if (skip(u'\\')) return escape();
    if (atOneOf(u"*+?{}^$]")) refuse("an unsupported operator");
    return literal();
}

SymbolSet PatternParser::characterClass() {
    bool const isInverted = skip(u'^');
    SymbolSet set;
    while (!atEnd() && !atOneOf(u"]")) {
        if (atOneOf(u"-")) refuse("a range");
        set |= skip(u'\\') ? escape() : literal();
    }
    if (!skip(u']')) refuse("unclosed class");
    return isInverted ? ~set : set;
}

SymbolSet PatternParser::escape() {
    if (skip(u's')) return whiteSpaceSet();
    if (skip(u'd')) return digitSet();
    if (!atOneOf(uR"(^$\.*+?()[]{}|/)")) refuse("an unsupported escape");
    return literal();
}

SymbolSet PatternParser::literal() {
    if (text_[position_] >= 128) refuse("a character beyond ASCII");
    return literalSet(text_[position_++]);
}

bool PatternParser::skip(char16_t unit) {
    if (atEnd() || text_[position_] != unit) return false;
    ++position_;
    return true;
}

void PatternParser::refuse(char const* reason) const {
    throw std::invalid_argument("pattern not supported: " + std::string(reason) + " at position " +
                                std::to_string(position_));
}

}  // namespace kx
