#pragma once

#include <string_view>
#include <vector>

#include "translate/Tree.h"

namespace kx::translate {

/// Which operators the conversion's literal rules miss. They take every quote of either kind for
/// the beginning or the end of a text, and skip the unit behind an operator that they replaced.
class OperatorScan {
  public:
    explicit OperatorScan(std::u16string_view formula);

    /// Whether the operator at the place is one of the rules' that stays as it is.
    bool isMissed(Place sign) const;

  private:
    void scanFor(std::u16string_view op);

    std::u16string_view formula_;
    std::vector<bool> isReplaced_;
    bool hasQuotes_;
};

}  // namespace kx::translate
