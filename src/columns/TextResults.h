#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "columns/KxJsColumns.h"

namespace kx {

/// Where an evaluation puts its results as texts.
class TextResults {
  public:
    TextResults() = default;
    explicit TextResults(std::u16string* texts) : texts_(texts) {}
    explicit TextResults(KxJsColumns::JoinedTexts& joined) : joined_(&joined) {}

    /// Puts the text of `record`: the next one, or again one that has a text.
    void put(std::size_t record, std::u16string_view text) const {
        if (joined_ == nullptr) {
            texts_[record] = text;
            return;
        }
        joined_->truncate(record);
        joined_->add(text);
    }

  private:
    std::u16string* texts_ = nullptr;
    KxJsColumns::JoinedTexts* joined_ = nullptr;
};

}  // namespace kx
