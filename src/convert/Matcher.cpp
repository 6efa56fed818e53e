#include "convert/Matcher.h"

namespace kx {

Matcher::Matcher(Pattern const& pattern, Workspace& work)
    : pattern_(pattern), text_(work.text), work_(work) {
    if (work.itemBegins.size() <= pattern.longestBranch()) {
        work.itemBegins.resize(pattern.longestBranch() + 1);
    }
    if (pattern.isOnePass()) {
        work.lastRuns.assign(pattern.loopCount(), {});
    } else {
        work.triedLoops.assign(text_.size() + 1, 0);
    }
}

std::size_t Matcher::matchAt(std::size_t start) {
    for (Branch const& branch : pattern_.branches()) {
        std::size_t const end = matchBranch(branch, start);
        if (end == kNowhere) continue;
        branch_ = &branch;
        return end;
    }
    return kNowhere;
}

std::size_t Matcher::matchBranch(Branch const& branch, std::size_t start) {
    std::size_t* const begins = work_.itemBegins.data();
    begins[0] = start;
    std::size_t number = 0;
    std::size_t steps = 0;
    while (number < branch.items.size()) {
        ++steps;
        std::size_t const end = endOfItem(branch.items[number], begins[number]);
        if (end != kNowhere) {
            begins[++number] = end;
        } else if (pattern_.isOnePass() || !goBack(branch, number)) {
            break;
        }
    }
    work_.steps += steps;
    return number == branch.items.size() ? begins[number] : kNowhere;
}

/// Makes the last item before `number` that can take one unit less do so. Sets `number` to the item
/// behind it.
bool Matcher::goBack(Branch const& branch, std::size_t& number) {
    std::size_t* const begins = work_.itemBegins.data();
    while (number > 0) {
        bool const isChoice = branch.items[number - 1].count != Item::Count::one;
        if (isChoice && begins[number] > begins[number - 1]) {
            --begins[number];
            return true;
        }
        --number;
    }
    return false;
}

/// The end of the most units that the item can take, or `kNowhere`.
std::size_t Matcher::endOfItem(Item const& item, std::size_t begin) {
    if (item.count == Item::Count::loop) {
        return pattern_.isOnePass() ? endOfRun(item, begin) : endOfUntried(item, begin);
    }
    if (begin < text_.size() && item.matches(text_[begin])) return begin + 1;
    return item.count == Item::Count::optional ? begin : kNowhere;
}

std::size_t Matcher::endOfRun(Item const& loop, std::size_t begin) {
    Workspace::Run& last = work_.lastRuns[loop.loop];
    if (begin >= last.begin && begin <= last.end) return last.end;
    std::size_t end = begin;
    while (end < text_.size() && loop.matches(text_[end])) ++end;
    work_.steps += end - begin;
    last = {begin, end};
    return end;
}

std::size_t Matcher::endOfUntried(Item const& loop, std::size_t begin) {
    auto const bit = static_cast<std::uint8_t>(1U << loop.loop);
    std::uint8_t* const tried = work_.triedLoops.data();
    if ((tried[begin] & bit) != 0) return kNowhere;
    tried[begin] |= bit;
    std::size_t end = begin;
    while (end < text_.size() && loop.matches(text_[end]) && (tried[end + 1] & bit) == 0) {
        tried[++end] |= bit;
    }
    work_.steps += end - begin;
    return end;
}

}  // namespace kx
