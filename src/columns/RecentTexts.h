#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "columns/KxJsColumns.h"

namespace kx {

/// Shares equal texts: the records of an evaluation fail for few reasons, mostly.
class RecentTexts {
  public:
    KxJsColumns::SharedText shared(std::u16string text) {
        auto const known = std::find(texts_.begin(), texts_.end(), std::u16string_view(text));
        if (known != texts_.end()) return *known;
        next_ = (next_ + 1) % texts_.size();
        return texts_[next_] = KxJsColumns::SharedText(std::move(text));
    }

  private:
    std::array<KxJsColumns::SharedText, 16> texts_;
    std::size_t next_ = 0;
};

}  // namespace kx
