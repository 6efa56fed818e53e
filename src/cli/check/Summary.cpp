#include "cli/check/Summary.h"

#include <algorithm>
#include <set>

namespace kx {

std::string_view verdictName(KxJsTranslator::Verdict verdict) {
    constexpr std::array<std::string_view, kVerdictCount> kNames{
        "same", "differs", "unknown", "changed", "fails", "not a formula"};
    return kNames[static_cast<std::size_t>(verdict)];
}

void Summary::add(KxJsTranslator::Check const& check) {
    ++count_;
    ++verdicts_[static_cast<std::size_t>(check.verdict)];
    std::set<std::u16string_view> counted;
    for (KxJsTranslator::Damage const& damage : check.damages) {
        if (counted.insert(damage.code).second) ++codes_[damage.code];
    }
}

std::vector<std::pair<std::u16string, std::size_t>> Summary::codes() const {
    std::vector<std::pair<std::u16string, std::size_t>> sorted(codes_.begin(), codes_.end());
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](auto const& a, auto const& b) { return a.second > b.second; });
    return sorted;
}

}  // namespace kx
