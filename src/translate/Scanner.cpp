#include "translate/Scanner.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "text/Surrogates.h"
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

Token Scanner::other() const {
    std::size_t end = position_;
    nextCharacter(source_, end);
    return make(Token::Type::other, static_cast<std::uint32_t>(end - position_));
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
            return other();
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
    if (!isNameStart(unit)) return other();
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
