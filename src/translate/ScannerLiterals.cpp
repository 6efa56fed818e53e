// Numbers, dates, and texts with escapes.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "translate/Dates.h"
#include "translate/Letters.h"
#include "translate/Scanner.h"

namespace kx::translate {
namespace {

/// The value of digits with a point and an exponent. Infinity where it is too large.
double valueOf(std::u16string_view digits) {
    constexpr std::size_t kExactDigits = 15;
    if (digits.size() <= kExactDigits && std::all_of(digits.begin(), digits.end(), isDigit)) {
        double value = 0;
        for (char16_t const digit : digits) value = value * 10 + (digit - u'0');
        return value;
    }
    std::string const text(digits.begin(), digits.end());
    double value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc::result_out_of_range) return value;
    return text.find('-') == std::string::npos ? HUGE_VAL : 0;
}

/// Reads the parts of a date literal.
class DateReader {
  public:
    explicit DateReader(std::u16string_view text) : text_(text) {}

    /// Skips blanks.
    char16_t next() {
        while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
        return at_ < text_.size() ? text_[at_] : u'\0';
    }
    bool take(char16_t unit) {
        if (next() != unit) return false;
        ++at_;
        return true;
    }
    /// A number of `fewest` to `most` digits; -1 without one.
    int takeNumber(std::size_t fewest, std::size_t most) {
        next();
        int value = 0;
        std::size_t count = 0;
        while (at_ < text_.size() && isDigit(text_[at_]) && count <= most) {
            value = value * 10 + (text_[at_++] - u'0');
            ++count;
        }
        return count < fewest || count > most ? -1 : value;
    }
    bool takeSeparator() { return take(u'-') || take(u'/') || take(u'.'); }
    bool takeEmptyDate() {
        return (take(u'/') && take(u'/')) || (take(u'-') && take(u'-')) ||
               (take(u'.') && take(u'.'));
    }

    struct Numbers {
        int first = 0;
        int second = 0;
        int third = 0;
    };
    /// Three numbers with separators; the first is -1 where they are not there.
    Numbers takeNumbers(std::size_t fewestOfFirst, std::size_t mostOfThird) {
        Numbers numbers;
        numbers.first = takeNumber(fewestOfFirst, 4);
        if (numbers.first < 0 || !takeSeparator()) return {-1};
        numbers.second = takeNumber(1, 2);
        if (numbers.second < 0 || !takeSeparator()) return {-1};
        numbers.third = takeNumber(1, mostOfThird);
        return numbers.third < 0 ? Numbers{-1} : numbers;
    }
    std::size_t position() const { return at_; }

  private:
    std::u16string_view text_;
    std::size_t at_ = 0;
};

}  // namespace

Token Scanner::escapedText() const {
    std::uint32_t end = position_ + 2;
    while (end < end_ && source_[end] != u'"' && !isLineBreak(source_[end])) {
        if (source_[end] == u'\\') {
            if (++end >= end_) break;
            char16_t const escape = at(end);
            bool const isCode =
                escape == u'x' && isHexadecimal(at(end + 1)) && isHexadecimal(at(end + 2));
            bool const isKnown = escape == u'n' || escape == u'r' || escape == u't' ||
                                 escape == u'"' || escape == u'\\' || isCode;
            if (!isKnown) fail({end - 1, end + 1}, u"unknown escape in a text");
        }
        ++end;
    }
    if (end >= end_ || source_[end] != u'"') fail({position_, end}, u"text not closed");
    Token token = make(Token::Type::text, end + 1 - position_);
    token.content = {position_ + 2, end};
    token.isEscaped = true;
    return token;
}

Token Scanner::quotedDate() {
    Token token = quoted(2, u'"');
    DateReader reader(text(token.content));
    auto const date = reader.takeNumbers(4, 2);
    bool const isComplete = date.first >= 0 && reader.next() == u'\0';
    token.number = isComplete ? translate::dayNumber(date.first, date.second, date.third) : 0;
    if (token.number == 0) fail(token.place, u"not a date");
    token.type = Token::Type::date;
    return token;
}

/// A date, or the beginning of what else stands in braces.
Token Scanner::brace() {
    std::u16string_view const behind = source_.substr(position_ + 1, end_ - position_ - 1);
    auto const until = [](std::size_t length) { return static_cast<std::uint32_t>(length + 1); };
    DateReader strict(behind);
    if (strict.take(u'^')) {
        auto const date = strict.takeNumbers(4, 2);
        std::size_t const close = behind.find(u'}', strict.position());
        if (date.first < 0 || close == std::u16string_view::npos) {
            fail(make(Token::Type::brace, until(strict.position())).place,
                 u"not a date: {^YYYY-MM-DD} expected");
        }
        Token token = make(Token::Type::date, until(close + 1));
        token.number = translate::dayNumber(date.first, date.second, date.third);
        if (token.number == 0) fail(token.place, u"impossible date");
        if (!strict.take(u'}')) token.type = Token::Type::dateWithTime;
        return token;
    }
    DateReader empty(behind);
    if (empty.takeEmptyDate() && empty.take(u'}')) {
        return make(Token::Type::date, until(empty.position()));
    }
    DateReader ambiguous(behind);
    if (ambiguous.takeNumbers(1, 4).first >= 0) {
        std::size_t const close = behind.find(u'}', ambiguous.position());
        char16_t const next = ambiguous.next();
        if (close != std::u16string_view::npos && (next == u'}' || isDigit(next))) {
            return make(Token::Type::ambiguousDate, until(close + 1));
        }
    }
    return make(Token::Type::brace, 1);
}

Token Scanner::dayNumber() {
    constexpr std::uint32_t kDigits = 8;
    std::array<int, kDigits> digits{};
    for (std::uint32_t i = 0; i < kDigits; ++i) {
        char16_t const unit = at(position_ + 2 + i);
        if (!isDigit(unit)) fail({position_, position_ + 2}, u"a letter directly behind a number");
        digits[i] = unit - u'0';
    }
    Token token = make(Token::Type::date, 2 + kDigits);
    if (isNamePart(at(token.place.end))) {
        fail({token.place.end, token.place.end + 1}, u"a date has 8 digits");
    }
    int const year = digits[0] * 1000 + digits[1] * 100 + digits[2] * 10 + digits[3];
    int const month = digits[4] * 10 + digits[5];
    int const day = digits[6] * 10 + digits[7];
    if (year == 0 && month == 0 && day == 0) return token;
    token.number = translate::dayNumber(year, month, day);
    if (token.number == 0) fail(token.place, u"impossible date");
    return token;
}

Token Scanner::hexadecimal() {
    std::uint32_t end = position_ + 2;
    double value = 0;
    for (; isHexadecimal(at(end)); ++end) {
        char16_t const unit = upperCase(at(end));
        value = value * 16 + (isDigit(unit) ? unit - u'0' : unit - u'A' + 10);
    }
    if (isNamePart(at(end))) fail({end, end + 1}, u"a letter directly behind a number");
    if (std::isinf(value)) fail({position_, end}, u"the number is too large");
    Token token = make(Token::Type::number, end - position_);
    token.number = value;
    token.scale = 0;
    return token;
}

Token Scanner::number() {
    if (at(position_) == u'0') {
        char16_t const prefix = upperCase(at(position_ + 1));
        if (prefix == u'X' && isHexadecimal(at(position_ + 2))) return hexadecimal();
        if (prefix == u'D') return dayNumber();
    }
    std::uint32_t end = position_;
    std::int16_t scale = 0;
    while (isDigit(at(end))) ++end;
    if (at(end) == u'.' && !beginsDottedWord(end)) {
        char16_t const next = at(end + 1);
        if (isDigit(next)) {
            std::uint32_t const point = end++;
            while (isDigit(at(end))) ++end;
            constexpr std::uint32_t kMost = 30000;
            scale = static_cast<std::int16_t>(std::min(end - point - 1, kMost));
        } else if (!isNameStart(next) && next != u'.') {
            ++end;
        }
    }
    if (upperCase(at(end)) == u'E') {
        std::uint32_t const sign = at(end + 1) == u'+' || at(end + 1) == u'-' ? 1 : 0;
        if (isDigit(at(end + 1 + sign))) {
            end += 1 + sign;
            scale = kNoScale;
            while (isDigit(at(end))) ++end;
        }
    }
    if (isNamePart(at(end))) {
        std::u16string_view const word = text({end, wordEnd(end)});
        if (!isWord(word, u"AND") && !isWord(word, u"OR")) {
            fail({end, end + 1}, u"a letter directly behind a number");
        }
    }
    Token token = make(Token::Type::number, end - position_);
    token.number = valueOf(text(token.place));
    if (std::isinf(token.number)) fail(token.place, u"the number is too large");
    token.scale = scale;
    return token;
}

}  // namespace kx::translate
