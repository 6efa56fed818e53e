#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "convert/Pattern.h"

namespace kx {

/// Reads the text of a pattern and writes out its branches, by recursive descent:
///
///     pattern  = sequence { "|" sequence }
///     sequence = { "(" items { "|" items } ")" | item }
///     item     = character [ "*" | "+" | "?" ]
class PatternParser {
  public:
    explicit PatternParser(std::u16string_view text) : text_(text) {}

    /// Throws std::invalid_argument, with the reason and the place, if the text is not supported.
    std::vector<Branch> parse();

  private:
    using Items = std::vector<Item>;

    std::vector<Branch> sequence();
    std::vector<Items> group();
    Items items();
    Items item();
    SymbolSet character();
    SymbolSet characterClass();
    SymbolSet escape();
    SymbolSet literal();

    bool atEnd() const { return position_ == text_.size(); }
    bool atOneOf(std::u16string_view units) const {
        return !atEnd() && units.find(text_[position_]) != std::u16string_view::npos;
    }
    bool skip(char16_t unit);
    [[noreturn]] void refuse(char const* reason) const;

    std::u16string_view text_;
    std::size_t position_ = 0;
};

}  // namespace kx
