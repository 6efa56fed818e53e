// What is not on a list here is refused: a mistake then costs time and never a result. With
// balanced parentheses and no statement among the tokens, a text that compiles both as a script and
// between parentheses means the same in both places. Computed members are refused, because
// 'x'['constructor'] reaches everything.
#include "columns/PureExpression.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/NameUnits.h"

namespace kx {

namespace {

using namespace std::string_view_literals;

/// Of Math, Number, and of texts, numbers and truth values.
constexpr std::array kMembers = {
    u"abs"sv,         u"acos"sv,         u"asin"sv,        u"atan"sv,       u"atan2"sv,
    u"cbrt"sv,        u"ceil"sv,         u"charAt"sv,      u"charCodeAt"sv, u"concat"sv,
    u"cos"sv,         u"cosh"sv,         u"E"sv,           u"endsWith"sv,   u"exp"sv,
    u"floor"sv,       u"fromCharCode"sv, u"hypot"sv,       u"includes"sv,   u"indexOf"sv,
    u"lastIndexOf"sv, u"left"sv,         u"length"sv,      u"LN10"sv,       u"LN2"sv,
    u"log"sv,         u"log10"sv,        u"LOG10E"sv,      u"log2"sv,       u"LOG2E"sv,
    u"ltrim"sv,       u"max"sv,          u"min"sv,         u"padEnd"sv,     u"padStart"sv,
    u"PI"sv,          u"pow"sv,          u"repeat"sv,      u"replace"sv,    u"right"sv,
    u"round"sv,       u"rtrim"sv,        u"sign"sv,        u"sin"sv,        u"sinh"sv,
    u"slice"sv,       u"sqrt"sv,         u"SQRT1_2"sv,     u"SQRT2"sv,      u"startsWith"sv,
    u"substr"sv,      u"substring"sv,    u"tan"sv,         u"tanh"sv,       u"toExponential"sv,
    u"toFixed"sv,     u"toLowerCase"sv,  u"toPrecision"sv, u"toString"sv,   u"toUpperCase"sv,
    u"trim"sv,        u"trunc"sv,
};

constexpr auto kNone = std::u16string_view::npos;
constexpr std::u16string_view kBlanks = u" \t\n\v\f\r\u00A0\uFEFF";
constexpr std::u16string_view kOperators = u"+-*%<>!&|^~?:,";

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

bool isHexadecimal(char16_t c) {
    return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

class Scan {
  public:
    explicit Scan(std::u16string_view source) : source_(source) {}

    std::optional<PureExpression> run() {
        while (true) {
            takeBlanks();
            if (isAtEnd()) break;
            if (at() == u';') {
                if (source_.find_first_not_of(kBlanks, position_ + 1) != kNone) return {};
                break;
            }
            if (!takeToken()) return {};
        }
        if (depth_ != 0) return {};
        return PureExpression{source_.substr(0, position_), std::move(names_)};
    }

  private:
    bool isAtEnd() const { return position_ >= source_.size(); }

    char16_t at(std::size_t ahead = 0) const {
        return position_ + ahead < source_.size() ? source_[position_ + ahead] : u'\0';
    }

    void takeBlanks() {
        while (!isAtEnd() && kBlanks.find(at()) != kNone) ++position_;
    }

    bool takeToken() {
        char16_t const c = at();
        if (isLatinNameStart(c)) return takeName();
        if (isDigit(c) || (c == u'.' && isDigit(at(1)))) return takeNumber();
        switch (c) {
            case u'\'':
            case u'"':
                return takeText();
            case u'.':
                return takeMember();
            case u'(':
                ++depth_;
                ++position_;
                endsOperand_ = false;
                return true;
            case u')':
                ++position_;
                endsOperand_ = true;
                return --depth_ >= 0;
            case u'=':
                return takeEquality();
            case u'/':
                // Elsewhere than behind an operand it begins a regular expression.
                if (!endsOperand_ || at(1) == u'/' || at(1) == u'*') return false;
                return takeOperator();
            default:
                return kOperators.find(c) != kNone && takeOperator();
        }
    }

    std::u16string_view takeWord() {
        std::size_t const start = position_;
        while (isLatinNamePart(at())) ++position_;
        endsOperand_ = true;
        return source_.substr(start, position_ - start);
    }

    /// A point and a name with nothing but blanks between: behind "..." and "?.(" stand names that
    /// the scope resolves.
    bool takeMember() {
        ++position_;
        takeBlanks();
        return std::find(kMembers.begin(), kMembers.end(), takeWord()) != kMembers.end();
    }

    bool takeName() {
        std::u16string_view const name = takeWord();
        bool const isCalled = charAfterBlanks() == u'(';
        auto const known =
            std::find_if(names_.begin(), names_.end(),
                         [name](PureExpression::Name const& seen) { return seen.text == name; });
        if (known == names_.end()) {
            names_.push_back({name, isCalled});
        } else {
            known->isCalled = known->isCalled && isCalled;
        }
        return true;
    }

    char16_t charAfterBlanks() const {
        std::size_t const next = source_.find_first_not_of(kBlanks, position_);
        return next == kNone ? u'\0' : source_[next];
    }

    bool takeNumber() {
        if (endsOperand_) return false;  // "A.5" is no formula
        char16_t const second = at(1);
        // Octal, where a point begins a member: in "017.E+/'/" what follows is no division.
        if (at() == u'0' && isDigit(second)) return false;
        if (at() == u'0' && (second == u'x' || second == u'X')) {
            position_ += 2;
            while (isHexadecimal(at())) ++position_;
        } else {
            while (isDigit(at())) ++position_;
            if (at() == u'.') ++position_;
            while (isDigit(at())) ++position_;
            if (at() == u'e' || at() == u'E') {
                position_ += at(1) == u'+' || at(1) == u'-' ? 2 : 1;
                if (!isDigit(at())) return false;
                while (isDigit(at())) ++position_;
            }
        }
        endsOperand_ = true;
        return !isLatinNamePart(at());  // 1n is no number
    }

    bool takeText() {
        char16_t const quote = at();
        for (++position_; !isAtEnd(); ++position_) {
            if (at() == u'\\') {
                ++position_;
            } else if (at() == quote) {
                ++position_;
                endsOperand_ = true;
                return true;
            }
        }
        return false;
    }

    /// "==" and "===" only: "!=", "<=" and ">=" are taken as operators.
    bool takeEquality() {
        if (at(1) != u'=') return false;
        position_ += at(2) == u'=' ? 3 : 2;
        endsOperand_ = false;
        return at() != u'=';
    }

    bool takeOperator() {
        char16_t const c = at();
        endsOperand_ = false;
        if (at(1) == c && (c == u'+' || c == u'-')) return false;  // ++, --
        while (at() == c) ++position_;                             // **, <<, >>>, &&, ||, ??
        if (at() != u'=') return true;
        bool const isSingle = position_ < 2 || source_[position_ - 2] != c;
        bool const isComparison = c == u'<' || c == u'>';
        if (c == u'!') {
            position_ += at(1) == u'=' ? 2 : 1;
            return at() != u'=';
        }
        if (!isComparison || !isSingle) return false;  // +=, <<=
        ++position_;
        return at() != u'=' && at() != u'>';
    }

    std::u16string_view source_;
    std::size_t position_ = 0;
    int depth_ = 0;
    bool endsOperand_ = false;  // the token before can end an operand
    std::vector<PureExpression::Name> names_;
};

}  // namespace

std::optional<PureExpression> pureExpression(std::u16string_view source) {
    return Scan(source).run();
}

}  // namespace kx
