#include "translate/Scanner.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "translate/Dates.h"
#include "translate/Letters.h"
#include "translate/Operators.h"

namespace kx::translate {
namespace {

struct DottedWord {
    std::u16string_view text;
    Token::Type type;
    Operator op;
    bool isTrue;
};

constexpr auto kDottedWords = std::to_array<DottedWord>({
    {u"AND", Token::Type::binary, Operator::logicalAnd, false},
    {u"OR", Token::Type::binary, Operator::logicalOr, false},
    {u"XOR", Token::Type::binary, Operator::logicalXor, false},
    {u"NOT", Token::Type::negation, Operator::none, false},
    {u"T", Token::Type::logical, Operator::none, true},
    {u"Y", Token::Type::logical, Operator::none, true},
    {u"F", Token::Type::logical, Operator::none, false},
    {u"N", Token::Type::logical, Operator::none, false},
    {u"NULL", Token::Type::nil, Operator::none, false},
});

constexpr bool isBlank(char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\u00A0'; }
constexpr bool isLineBreak(char16_t unit) { return unit == u'\r' || unit == u'\n'; }

constexpr bool isHexadecimal(char16_t unit) {
    return isDigit(unit) || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

/// Whether `text` is `word`, an upper-case one, in whatever case.
bool isWord(std::u16string_view text, std::u16string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char16_t a, char16_t b) { return upperCase(a) == b; });
}

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

    /// Over blanks.
    char16_t next() {
        while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
        return at_ < text_.size() ? text_[at_] : u'\0';
    }
    bool take(char16_t unit) {
        if (next() != unit) return false;
        ++at_;
        return true;
    }
    /// A number with that many digits at most; -1 without one.
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

void Scanner::fail(Place place, std::u16string text) const {
    throw SyntaxError{place, std::move(text)};
}

void Scanner::skipLine() {
    while (position_ < end_ && !isLineBreak(source_[position_])) ++position_;
}

void Scanner::skipComment() {
    std::size_t const close = source_.substr(0, end_).find(u"*/", position_ + 2);
    if (close == std::u16string_view::npos) {
        fail({position_, position_ + 2}, u"comment not closed");
    }
    position_ = static_cast<std::uint32_t>(close + 2);
}

/// Over a ";" at the end of a line, or of the formula, and what may follow it there.
bool Scanner::skipContinuation() {
    std::uint32_t const start = position_++;
    for (;;) {
        while (isBlank(at(position_))) ++position_;
        if (at(position_) != u'/' || at(position_ + 1) != u'*') break;
        skipComment();
    }
    bool const isComment = (at(position_) == u'/' && at(position_ + 1) == u'/') ||
                           (at(position_) == u'&' && at(position_ + 1) == u'&');
    if (isComment) skipLine();
    if (position_ >= end_ || isLineBreak(at(position_))) return true;
    position_ = start;
    return false;
}

bool Scanner::isFirstOfLine() const {
    std::uint32_t before = position_;
    while (before > start_ && isBlank(source_[before - 1])) --before;
    return before == start_ || isLineBreak(source_[before - 1]);
}

void Scanner::skipBlanks(bool behindOperand) {
    while (position_ < end_) {
        char16_t const unit = source_[position_];
        char16_t const next = at(position_ + 1);
        if (isBlank(unit) || isLineBreak(unit)) {
            ++position_;
        } else if (unit == u';') {
            if (!skipContinuation()) return;
        } else if (unit == u'/' && next == u'*') {
            skipComment();
        } else if ((unit == u'&' && next == u'&') || (unit == u'/' && next == u'/') ||
                   (unit == u'*' && !behindOperand && isFirstOfLine())) {
            skipLine();
        } else {
            return;
        }
    }
}

std::uint32_t Scanner::wordEnd(std::uint32_t position) const {
    while (position < end_ && isNamePart(source_[position])) ++position;
    return position;
}

std::uint32_t Scanner::dottedWord(std::uint32_t position, std::u16string_view word) const {
    std::uint32_t at = position + 1;
    if (at < end_ && isBlank(source_[at])) ++at;
    if (end_ - at <= word.size() || !isWord(source_.substr(at, word.size()), word)) return 0;
    at += static_cast<std::uint32_t>(word.size());
    if (isBlank(source_[at])) ++at;
    return at < end_ && source_[at] == u'.' ? at + 1 - position : 0;
}

bool Scanner::beginsDottedWord(std::uint32_t position) const {
    return std::any_of(kDottedWords.begin(), kDottedWords.end(), [&](DottedWord const& word) {
        return dottedWord(position, word.text) != 0;
    });
}

Token Scanner::make(Token::Type type, std::uint32_t length) const {
    Token token;
    token.type = type;
    token.place = {position_, position_ + length};
    return token;
}

Token Scanner::quoted(std::uint32_t opening, char16_t closing) const {
    std::uint32_t end = position_ + opening;
    while (end < end_ && source_[end] != closing) {
        if (isLineBreak(source_[end])) break;
        ++end;
    }
    if (end >= end_ || source_[end] != closing) fail({position_, end}, u"text not closed");
    Token token = make(Token::Type::text, end + 1 - position_);
    token.content = {position_ + opening, end};
    return token;
}

Token Scanner::escapedText() const {
    std::uint32_t end = position_ + 2;
    while (end < end_ && source_[end] != u'"' && !isLineBreak(source_[end])) {
        if (source_[end] == u'\\') {
            char16_t const escape = at(end + 1);
            bool const isCode =
                escape == u'x' && isHexadecimal(at(end + 2)) && isHexadecimal(at(end + 3));
            bool const isKnown = escape == u'n' || escape == u'r' || escape == u't' ||
                                 escape == u'"' || escape == u'\\' || isCode;
            if (!isKnown) fail({end, end + 2}, u"unknown escape in a text");
            ++end;
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
    auto const until = [this](std::size_t length) {
        return static_cast<std::uint32_t>(length + 1);
    };
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

Token Scanner::word() {
    std::uint32_t const end = wordEnd(position_);
    Token token = make(Token::Type::word, end - position_);
    std::u16string_view const word = text(token.place);
    constexpr std::size_t kLongestKnown = 5;
    if (word.size() > kLongestKnown) return token;
    if (word.size() == 1 && at(end) == u'"') {
        if (upperCase(word[0]) == u'E') return escapedText();
        if (upperCase(word[0]) == u'D') return quotedDate();
    }
    if (isWord(word, u"NOT")) {
        token.type = Token::Type::negation;
        return token;
    }
    bool const isTrue = isWord(word, u"TRUE");
    bool const isLogical = isTrue || isWord(word, u"FALSE");
    if (!isLogical && !isWord(word, u"NIL") && !isWord(word, u"NULL")) return token;
    std::uint32_t const start = position_;
    position_ = end;
    skipBlanks(true);
    bool const isName =
        at(position_) == u'(' || (at(position_) == u'-' && at(position_ + 1) == u'>');
    position_ = start;
    if (isName) return token;
    token.type = isLogical ? Token::Type::logical : Token::Type::nil;
    token.isTrue = isTrue;
    return token;
}

Token Scanner::dottedOperand() {
    if (isDigit(at(position_ + 1))) return number();
    for (DottedWord const& word : kDottedWords) {
        std::uint32_t const length = dottedWord(position_, word.text);
        if (length == 0) continue;
        Token token = make(word.type, length);
        token.op = word.op;
        token.isTrue = word.isTrue;
        return token;
    }
    return make(Token::Type::point, 1);
}

Token Scanner::operand() {
    using Type = Token::Type;
    skipBlanks(false);
    if (position_ >= end_) return make(Type::end, 0);
    char16_t const unit = source_[position_];
    char16_t const next = at(position_ + 1);
    if (isDigit(unit)) return number();
    if (isNameStart(unit)) return word();
    switch (unit) {
        case u'"':
        case u'\'':
            return quoted(1, unit);
        case u'[':
            return quoted(1, u']');
        case u'.':
            return dottedOperand();
        case u'{':
            return brace();
        case u'!':
            return make(next == u'=' ? Type::other : Type::negation, 1);
        case u'+':
            return next == u'+' ? make(Type::increment, 2) : make(Type::plus, 1);
        case u'-':
            return next == u'-' ? make(Type::increment, 2) : make(Type::minus, 1);
        case u'&':
            return make(Type::macro, 1);
        case u'@':
            return make(Type::reference, 1);
        case u':':
            return make(Type::colon, next == u':' ? 2 : 1);
        case u'(':
            return make(Type::open, 1);
        case u')':
            return make(Type::close, 1);
        case u']':
            return make(Type::closeBracket, 1);
        case u'}':
            return make(Type::closeBrace, 1);
        case u',':
            return make(Type::comma, 1);
        case u'|':
            return make(Type::bar, 1);
        default:
            return make(Type::other, 1);
    }
}

Token Scanner::operation() {
    using Type = Token::Type;
    skipBlanks(true);
    if (position_ >= end_) return make(Type::end, 0);
    char16_t const unit = source_[position_];
    char16_t const next = at(position_ + 1);
    switch (unit) {
        case u')':
            return make(Type::close, 1);
        case u',':
            return make(Type::comma, 1);
        case u'(':
            return make(Type::open, 1);
        case u'[':
            return make(Type::bracket, 1);
        case u']':
            return make(Type::closeBracket, 1);
        case u'}':
            return make(Type::closeBrace, 1);
        case u'|':
            return make(Type::bar, 1);
        case u'&':
            return make(Type::macro, 1);
        case u'.': {
            Token const dotted = dottedOperand();
            return dotted.type == Type::binary ? dotted : make(Type::point, 1);
        }
        default:
            break;
    }
    if (unit == u'-' && next == u'>') return make(Type::arrow, 2);
    if (unit == next && (unit == u'+' || unit == u'-')) {
        Token token = make(Type::increment, 2);
        token.op = unit == u'+' ? Operator::add : Operator::subtract;
        return token;
    }
    for (OperatorSign const& sign : kOperatorSigns) {
        if (sign.text[0] != unit || (sign.text.size() == 2 && sign.text[1] != next)) continue;
        Token token = make(Type::binary, static_cast<std::uint32_t>(sign.text.size()));
        token.op = sign.op;
        return token;
    }
    if (unit == u':') return make(Type::colon, next == u':' ? 2 : 1);
    if (!isNameStart(unit)) return make(Type::other, 1);
    Token token = make(Type::binary, wordEnd(position_) - position_);
    std::u16string_view const word = text(token.place);
    if (isWord(word, u"AND")) {
        token.op = Operator::logicalAnd;
    } else if (isWord(word, u"OR")) {
        token.op = Operator::logicalOr;
    } else if (isWord(word, u"XOR")) {
        token.op = Operator::logicalXor;
    } else if (isWord(word, u"DIV")) {
        token.op = Operator::divide;
    } else {
        token.type = Type::other;
    }
    return token;
}

}  // namespace kx::translate
