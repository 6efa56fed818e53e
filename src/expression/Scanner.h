#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "expression/Operators.h"
#include "expression/Parser.h"

namespace kx {

/// Reads the words, literals and punctuators of a source, one after the other. A function that
/// refuses says why in refusal().
class Scanner {
  public:
    explicit Scanner(std::u16string_view source) : source_(source) {}

    std::uint32_t position() const { return static_cast<std::uint32_t>(position_); }
    std::optional<Refusal> const& refusal() const { return refusal_; }
    bool isAtEnd() const { return position_ >= source_.size(); }
    char16_t at(std::size_t ahead = 0) const {
        return position_ + ahead < source_.size() ? source_[position_ + ahead] : u'\0';
    }
    std::u16string_view from(std::size_t start) const {
        return source_.substr(start, position_ - start);
    }
    void skip() { ++position_; }

    /// Over white space and comments. False for a comment without an end.
    bool skipBlanks() {
        hasLineEnd_ = false;
        // In most places of a formula there are none.
        bool const mayBeBlank = at() <= u' ' || at() == u'/' || at() > u'~';
        return !mayBeBlank || skipSomeBlanks();
    }
    /// Whether there was a line end in the blanks that were skipped last.
    bool hasLineEnd() const { return hasLineEnd_; }

    /// Empty, and refused, where no name begins.
    std::u16string_view takeName();
    std::optional<double> takeNumber();
    /// Appends the text's value.
    bool takeText(std::u16string& value);
    /// Null where none begins.
    Punctuator const* takePunctuator();

    /// Notes the refusal of what lies between `start` and the position, or of the unit there.
    bool refuse(Refusal::Reason reason, std::size_t start);

  private:
    bool skipSomeBlanks();
    bool skipComment();
    std::optional<double> takeHexadecimal();
    void takeDigits();
    bool takeEscape(std::u16string& value);
    bool takeHexadecimalEscape(std::u16string& value, std::size_t digits);

    std::u16string_view source_;
    std::size_t position_ = 0;
    bool hasLineEnd_ = false;
    std::optional<Refusal> refusal_;
};

}  // namespace kx
