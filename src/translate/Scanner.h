#pragma once

#include <string_view>

#include "translate/SyntaxError.h"
#include "translate/Tree.h"

namespace kx::translate {

/// A token. What a sign means depends on whether an operand stands before it, so the parser asks
/// for one kind or the other.
struct Token {
    enum class Type : std::uint8_t {
        end,
        // Operands and what begins them.
        number,
        text,
        date,
        dateWithTime,
        ambiguousDate,
        logical,
        nil,
        word,
        negation,  // NOT, .NOT., "!"
        plus,
        minus,
        brace,      // "{"
        macro,      // "&"
        reference,  // "@"
        // Behind operands.
        binary,
        arrow,  // "->"
        bracket,
        // Both.
        increment,  // "++" and "--"
        point,
        colon,  // ":" and "::"
        open,
        close,
        closeBracket,
        closeBrace,
        comma,
        bar,
        other,
    };

    Type type = Type::end;
    Operator op = Operator::none;   // binary. increment: add or subtract
    bool isTrue = false;            // logical
    bool isEscaped = false;         // text
    std::int16_t scale = kNoScale;  // number: decimals as written
    Place place;
    Place content;      // text
    double number = 0;  // number; date: its day
};

/// Reads the part of a formula between two places. Each call looks at what is behind `position`
/// and the caller moves on by setting it. Throws SyntaxError.
class Scanner {
  public:
    Scanner(std::u16string_view source, Place part)
        : source_(source), position_(part.start), start_(part.start), end_(part.end) {}

    std::u16string_view source() const { return source_; }
    std::u16string_view text(Place place) const {
        return source_.substr(place.start, place.end - place.start);
    }
    std::uint32_t position() const { return position_; }
    void setPosition(std::uint32_t position) { position_ = position; }

    /// The next token where an operand is expected.
    Token operand();
    /// The next token behind an operand.
    Token operation();

  private:
    char16_t at(std::uint32_t position) const {
        return position < end_ ? source_[position] : u'\0';
    }
    void skipBlanks(bool behindOperand);
    void skipLine();
    void skipComment();
    bool skipContinuation();
    bool isFirstOfLine() const;
    /// The length of ".WORD." at the place, one blank allowed inside each point; 0 without.
    std::uint32_t dottedWord(std::uint32_t position, std::u16string_view word) const;
    bool beginsDottedWord(std::uint32_t position) const;
    std::uint32_t wordEnd(std::uint32_t position) const;

    Token make(Token::Type type, std::uint32_t length) const;
    /// What no token begins with: a character, of two units perhaps.
    Token other() const;
    Token word();
    Token dottedOperand();
    Token number();
    Token hexadecimal();
    Token dayNumber();
    Token quoted(std::uint32_t opening, char16_t closing) const;
    Token escapedText() const;
    Token quotedDate();
    Token brace();
    [[noreturn]] void fail(Place place, std::u16string text) const;

    std::u16string_view source_;
    std::uint32_t position_;
    std::uint32_t start_;
    std::uint32_t end_;
};

}  // namespace kx::translate
