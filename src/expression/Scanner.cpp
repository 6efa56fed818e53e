#include "expression/Scanner.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "text/Digit.h"
#include "text/LineEnd.h"
#include "text/NameUnits.h"

namespace kx {

namespace {

/// Longer numbers are not worth a larger buffer.
constexpr std::size_t kLongestNumber = 64;
/// More digits may not have an exact value.
constexpr std::size_t kMostHexadecimalDigits = 13;
constexpr std::size_t kAscii = 128;

int hexadecimalValue(char16_t unit) {
    if (isDigit(unit)) return unit - u'0';
    char16_t const lower = unit | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// Where the punctuators begin that begin with a unit.
constexpr auto kFirstPunctuators = [] {
    std::array<std::uint8_t, kAscii> first{};
    first.fill(kPunctuators.size());
    for (std::size_t i = kPunctuators.size(); i > 0; --i) {
        first[kPunctuators[i - 1].text[0]] = static_cast<std::uint8_t>(i - 1);
    }
    return first;
}();

}  // namespace

bool Scanner::refuse(Refusal::Reason reason, std::size_t start) {
    std::size_t const end = std::min(std::max(position_, start + 1), source_.size());
    refusal_ = Refusal{
        reason,
        {static_cast<std::uint32_t>(std::min(start, end)), static_cast<std::uint32_t>(end)}};
    return false;
}

bool Scanner::skipSomeBlanks() {
    while (!isAtEnd()) {
        if (isWhiteSpace(at())) {
            hasLineEnd_ = hasLineEnd_ || isLineEnd(at());
            ++position_;
        } else if (at() == u'/' && (at(1) == u'/' || at(1) == u'*')) {
            if (!skipComment()) return false;
        } else {
            break;
        }
    }
    return true;
}

bool Scanner::skipComment() {
    if (at(1) == u'/') {
        position_ = std::min(source_.find_first_of(kLineEnds, position_), source_.size());
        return true;
    }
    std::size_t const start = position_;
    std::size_t const end = source_.find(u"*/", position_ + 2);
    if (end == std::u16string_view::npos) {
        position_ = source_.size();
        return refuse(Refusal::Reason::syntaxError, start);
    }
    position_ = end + 2;
    hasLineEnd_ = hasLineEnd_ || from(start).find_first_of(kLineEnds) != std::u16string_view::npos;
    return true;
}

std::u16string_view Scanner::takeName() {
    std::size_t const start = position_;
    if (isLatinNameStart(at())) {
        while (isLatinNamePart(at())) ++position_;
    }
    // An escape, or a letter beyond the exact tables.
    if (mayBeNamePart(at()) && !isAtEnd()) {
        refuse(Refusal::Reason::unsupported, position_);
        return {};
    }
    if (at() == u'\\') {
        refuse(Refusal::Reason::unsupported, position_);
        return {};
    }
    if (position_ == start) refuse(Refusal::Reason::syntaxError, start);
    return from(start);
}

void Scanner::takeDigits() {
    while (isDigit(at())) ++position_;
}

std::optional<double> Scanner::takeNumber() {
    std::size_t const start = position_;
    auto const refused = [&](Refusal::Reason reason) {
        refuse(reason, start);
        return std::nullopt;
    };
    std::optional<double> number;
    if (at() == u'0' && (at(1) | 0x20) == u'x') {
        number = takeHexadecimal();
    } else {
        if (at() == u'0' && isDigit(at(1))) return refused(Refusal::Reason::unsupported);  // octal
        takeDigits();
        if (at() == u'.') ++position_;
        takeDigits();
        if ((at() | 0x20) == u'e') {
            position_ += at(1) == u'+' || at(1) == u'-' ? 2 : 1;
            if (!isDigit(at())) return refused(Refusal::Reason::syntaxError);
            takeDigits();
        }
        std::array<char, kLongestNumber> digits;
        std::size_t const length = position_ - start;
        if (length > digits.size()) return refused(Refusal::Reason::tooComplex);
        std::copy(source_.begin() + start, source_.begin() + position_, digits.begin());
        double value = 0;
        auto const read = std::from_chars(digits.data(), digits.data() + length, value);
        // Out of range: infinite, or smaller than all but zero.
        if (read.ec == std::errc()) number = value;
    }
    // Such as 1n, 1_000, 0b1: what is a number to JavaScript goes on.
    if (!number || mayBeNamePart(at()) || at() == u'\\') {
        return refused(Refusal::Reason::unsupported);
    }
    return number;
}

std::optional<double> Scanner::takeHexadecimal() {
    position_ += 2;
    std::size_t const start = position_;
    double number = 0;
    for (; hexadecimalValue(at()) >= 0; ++position_) number = number * 16 + hexadecimalValue(at());
    std::size_t const length = position_ - start;
    if (length == 0 || length > kMostHexadecimalDigits) return std::nullopt;
    return number;
}

bool Scanner::takeText(std::u16string& value) {
    std::size_t const start = position_;
    char16_t const quote = at();
    for (++position_; !isAtEnd();) {
        char16_t const unit = at();
        if (unit == quote) {
            ++position_;
            return true;
        }
        if (unit == u'\n' || unit == u'\r') break;
        ++position_;
        if (unit != u'\\') {
            value += unit;
        } else if (!takeEscape(value)) {
            return false;
        }
    }
    return refuse(Refusal::Reason::syntaxError, start);
}

/// What stands behind a backslash.
bool Scanner::takeEscape(std::u16string& value) {
    constexpr std::u16string_view kLetters = u"bfnrtv";
    constexpr std::u16string_view kMeanings = u"\b\f\n\r\t\v";
    char16_t const unit = at();
    std::size_t const letter = kLetters.find(unit);
    if (unit == u'x') return takeHexadecimalEscape(value, 2);
    if (unit == u'u') return takeHexadecimalEscape(value, 4);
    // A digit begins an octal escape, a line end continues the text.
    if (isAtEnd() || isDigit(unit) || isLineEnd(unit)) {
        return refuse(Refusal::Reason::unsupported, position_ - 1);
    }
    ++position_;
    value += letter == std::u16string_view::npos ? unit : kMeanings[letter];
    return true;
}

bool Scanner::takeHexadecimalEscape(std::u16string& value, std::size_t digits) {
    std::size_t const start = position_ - 1;
    ++position_;
    int unit = 0;
    for (; digits > 0; --digits, ++position_) {
        int const digit = hexadecimalValue(at());
        if (digit < 0) return refuse(Refusal::Reason::unsupported, start);
        unit = unit * 16 + digit;
    }
    value += static_cast<char16_t>(unit);
    return true;
}

Punctuator const* Scanner::takePunctuator() {
    if (at() >= kAscii) return nullptr;
    for (std::size_t i = kFirstPunctuators[at()];
         i < kPunctuators.size() && kPunctuators[i].text[0] == at(); ++i) {
        std::u16string_view const text = kPunctuators[i].text;
        // Most differ in the second unit.
        if (text.size() > 1 && (text[1] != at(1) || !source_.substr(position_).starts_with(text))) {
            continue;
        }
        // A point of a number, in "A?.5:1".
        if (text == u"?." && isDigit(at(2))) continue;
        position_ += text.size();
        return &kPunctuators[i];
    }
    return nullptr;
}

}  // namespace kx
