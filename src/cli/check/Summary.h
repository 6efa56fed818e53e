#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "translate/KxJsTranslator.h"

namespace kx {

/// "same", "differs", "unknown", "changed", "fails", "not a formula".
std::string_view verdictName(KxJsTranslator::Verdict verdict);
inline constexpr std::size_t kVerdictCount = 6;

/// How many formulas there are of each verdict, and how many have each code.
class Summary {
  public:
    void add(KxJsTranslator::Check const& check);

    std::size_t count() const { return count_; }
    std::size_t countOf(KxJsTranslator::Verdict verdict) const {
        return verdicts_[static_cast<std::size_t>(verdict)];
    }
    /// Whether all formulas have the verdict "same".
    bool keepsAll() const { return countOf(KxJsTranslator::Verdict::SAME) == count_; }

    /// Codes and the formulas that have them, the most frequent first.
    std::vector<std::pair<std::u16string, std::size_t>> codes() const;

  private:
    std::size_t count_ = 0;
    std::array<std::size_t, kVerdictCount> verdicts_{};
    std::map<std::u16string, std::size_t> codes_;
};

}  // namespace kx
