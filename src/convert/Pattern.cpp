#include "convert/Pattern.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "convert/PatternParser.h"

namespace kx {

namespace {

bool canBeEmpty(Branch const& branch) {
    return std::none_of(branch.items.begin(), branch.items.end(),
                        [](Item const& item) { return item.count == Item::Count::one; });
}

/// Whether a match may need an item to take fewer units than it can.
///
/// It does not if all that can follow begins outside the item's set. It does not either if all that
/// follows can be empty: then the match succeeds with the most that the item can take.
bool mayGiveBack(Branch const& branch, std::size_t number) {
    Item const& item = branch.items[number];
    if (item.count == Item::Count::one) return false;
    bool overlaps = false;
    for (std::size_t next = number + 1; next < branch.items.size(); ++next) {
        overlaps = overlaps || (branch.items[next].set & item.set).any();
        if (branch.items[next].count == Item::Count::one) return overlaps;
    }
    return false;
}

}  // namespace

Pattern::Pattern(std::u16string_view text) : branches_(PatternParser(text).parse()) {
    for (Branch& branch : branches_) {
        if (canBeEmpty(branch)) {
            throw std::invalid_argument("pattern not supported: can match the empty text");
        }
        longestBranch_ = std::max(longestBranch_, branch.items.size());
        for (std::size_t i = 0; i < branch.items.size(); ++i) {
            Item& item = branch.items[i];
            isOnePass_ = isOnePass_ && !mayGiveBack(branch, i);
            if (item.count == Item::Count::loop) {
                item.loop = static_cast<std::uint8_t>(loopCount_++);
            }
        }
    }
    if (!isOnePass_ && loopCount_ > kMaxBacktrackingLoops) {
        throw std::invalid_argument("pattern not supported: too many loops");
    }
}

}  // namespace kx
