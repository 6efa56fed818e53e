#include "translate/check/Patches.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "expression/Operators.h"
#include "text/NameUnits.h"
#include "text/NumberText.h"
#include "text/ReservedWords.h"
#include "text/WhiteSpace.h"
#include "translate/Letters.h"

namespace kx::translate {
namespace {

using Reason = Refusal::Reason;

class Patcher {
  public:
    explicit Patcher(Patches& patches)
        : text_(patches.text), labels_(patches.labels), isOther_(patches.isOther) {}

    /// Replaces what was refused. False where it is no JavaScript.
    bool patch(Refusal const& refusal) {
        std::size_t const at = refusal.place.start;
        switch (refusal.reason) {
            case Reason::objectOrArray:
                return at < text_.size() && patchBrackets(at);
            case Reason::increment:
                return patchIncrement(at);
            case Reason::function:
                return patchWord(at) || patchArrow(at);
            case Reason::statement:
                return patchWord(at) || patchSemicolon(at);
            case Reason::unsupported:
                return patchWord(at) || patchOctal(at);
            case Reason::syntaxError:
                return patchCallAssignment(at) || patchLastComma(at) || patchLabel(at);
            default:
                return false;
        }
    }

  private:
    char16_t unitAt(std::size_t at) const { return at < text_.size() ? text_[at] : u'\0'; }
    std::size_t skipBlanks(std::size_t at) const {
        while (at < text_.size() && isWhiteSpace(text_[at])) ++at;
        return at;
    }
    /// The place of the last unit before `at` that is no blank; npos without one.
    std::size_t before(std::size_t at) const {
        while (at > 0 && isWhiteSpace(text_[at - 1])) --at;
        return at == 0 ? std::u16string::npos : at - 1;
    }

    /// An array, an object, or a block at the start of the script.
    bool patchBrackets(std::size_t at) {
        bool const isBrace = text_[at] == u'{';
        bool const isBlock = isBrace && before(at) == std::u16string::npos;
        std::size_t const close = closingBracket(at, isBrace ? u'}' : u']');
        if (close == std::u16string::npos) return false;
        // An object of names.
        bool const isObject = isBrace && !isBlock;
        bool const hasTargets = holdsTargets(at + 1, close);
        if (isObject && (text_.find(u'=', at) < close || !hasTargets)) return false;
        // What follows a block is a statement of its own.
        if (isBlock && skipBlanks(close + 1) < text_.size()) text_.insert(close + 1, 1, u',');
        bool const isEmpty = skipBlanks(at + 1) == close;
        std::size_t const behind = skipBlanks(close + 1);
        if (unitAt(behind) == u'=' && unitAt(behind + 1) == u'>') return false;
        // "([A])=>B", but not "([A])=B".
        std::size_t const outside = behindGroups(behind);
        if (!isBrace && isIncrement(outside)) return false;
        if (outside > behind && isTargetBefore(outside)) {
            return unitAt(outside + 1) == u'>' && hasTargets && patchPattern(at, close);
        }
        if (isTargetBefore(behind)) return (isEmpty || hasTargets) && patchPattern(at, close);
        if (isEmpty && close == at + 1) {
            text_.replace(at, 2, u"(0)");
        } else {
            text_[at] = u'(';
            text_[close] = u')';
            if (isEmpty) text_[at + 1] = u'0';
        }
        return isOther_ = true;
    }

    /// The place behind the closing parentheses from `at` on that group and end no call.
    std::size_t behindGroups(std::size_t at) const {
        for (;;) {
            std::size_t const open = opening(at);
            if (open == std::u16string::npos || nameBefore(open) < open) return at;
            at = skipBlanks(at + 1);
        }
    }

    bool isIncrement(std::size_t at) const {
        return text_.compare(at, 2, u"++") == 0 || text_.compare(at, 2, u"--") == 0;
    }

    /// Whether "=" or "=>" is there.
    bool isTargetBefore(std::size_t at) const {
        return unitAt(at) == u'=' && unitAt(at + 1) != u'=';
    }

    /// The place of the first `bracket` from `at` on that is in no text; npos without one.
    std::size_t closingBracket(std::size_t at, char16_t bracket) const {
        for (; at < text_.size() && text_[at] != bracket; ++at) {
            if (text_[at] == u'"' || text_[at] == u'\'') at = text_.find(text_[at], at + 1);
            if (at == std::u16string::npos) return at;
        }
        return at < text_.size() ? at : std::u16string::npos;
    }

    /// "[A,B]=C" takes the array on the right apart.
    bool patchPattern(std::size_t open, std::size_t close) {
        if (!mayBegin(open)) return false;
        std::fill(text_.begin() + static_cast<std::ptrdiff_t>(open),
                  text_.begin() + static_cast<std::ptrdiff_t>(close) + 1, u' ');
        text_[open] = u'q';
        return isOther_ = true;
    }

    /// "A++", "(A)++" or "++A".
    bool patchIncrement(std::size_t at) {
        if (at + 1 >= text_.size()) return false;
        std::size_t left = before(at);
        while (left != std::u16string::npos && isNameInParentheses(left)) left = before(left);
        bool const isBehind = left != std::u16string::npos &&
                              ((mayBeNamePart(text_[left]) && isBehindName(left)) ||
                               isBehindIndex(left) || callBefore(left) != std::u16string::npos);
        std::size_t const next = skipBlanks(at + 2);
        // JavaScript allows no call, member or assignment of the result.
        bool const isUsed =
            std::u16string_view(u"([.").find(unitAt(next)) != std::u16string_view::npos ||
            isTargetBefore(behindGroups(next));
        if (isBehind ? isUsed : !mayBeNameStart(unitAt(next))) return false;
        text_[at] = u' ';
        text_[at + 1] = u' ';
        return isOther_ = true;
    }

    bool isNameInParentheses(std::size_t close) const {
        std::size_t const open = opening(close);
        if (open == std::u16string::npos || nameBefore(open) < open) return false;
        std::size_t const last = before(close);
        std::size_t const first = skipBlanks(open + 1);
        return text_[last] == u')'
                   ? isNameInParentheses(last)
                   : mayBeNameStart(text_[first]) && first + nameLength(first) == last + 1;
    }

    /// "A[B]", but no array.
    bool isBehindIndex(std::size_t close) const {
        std::size_t const open = opening(close, u"[]");
        std::size_t const left = open == std::u16string::npos ? open : before(open);
        return left != std::u16string::npos &&
               (mayBeNamePart(text_[left]) || text_[left] == u')' || text_[left] == u']');
    }

    bool isBehindName(std::size_t last) const {
        std::size_t first = last;
        while (first > 0 && mayBeNamePart(text_[first - 1])) --first;
        return !isDigit(text_[first]);
    }

    bool patchWord(std::size_t at) {
        std::size_t const end = at + nameLength(at);
        std::u16string_view const word = std::u16string_view(text_).substr(at, end - at);
        bool const isThis = word == u"this";
        if (!isThis && !isNameInScripts(word)) return false;
        if (isThis) isOther_ = true;
        for (; at < end; ++at) text_[at] = upperCase(text_[at]);
        return true;
    }

    /// Writes an octal number as the decimal one of the same value.
    bool patchOctal(std::size_t at) {
        std::size_t end = at;
        double value = 0;
        bool isOctal = true;
        for (; isDigit(unitAt(end)); ++end) {
            isOctal = isOctal && text_[end] < u'8';
            value = value * 8 + (text_[end] - u'0');
        }
        constexpr double kMostDigits = 1e15;
        bool const isNumber = end > at + 1 && text_[at] == u'0' && value < kMostDigits;
        // "007.or" is a property; "007.5" is no JavaScript.
        bool const isObject = isOctal && unitAt(end) == u'.';
        if (!isNumber || (isObject && !mayBeNameStart(unitAt(end + 1)))) return false;
        std::u16string decimal;
        if (isOctal) {
            decimal = decimalText(static_cast<std::int64_t>(value));
        } else {
            std::size_t first = at;
            while (first + 1 < end && text_[first] == u'0') ++first;
            decimal = text_.substr(first, end - first);
        }
        if (isObject) decimal = u'(' + decimal + u')';
        text_.replace(at, end - at, decimal);
        return true;
    }

    /// "(A)=>": the only parameters that a converted formula can have.
    bool patchArrow(std::size_t at) {
        std::size_t const close = before(at);
        if (close == std::u16string::npos || text_[close] != u')') return false;
        std::size_t const open = text_.rfind(u'(', close);
        if (open == std::u16string::npos || !holdsTargets(open + 1, close)) return false;
        return patchPattern(open, close);
    }

    /// Whether there are names between commas, each with or without a default value.
    bool holdsTargets(std::size_t start, std::size_t end) const {
        for (std::size_t i = skipBlanks(start); i < end; i = skipBlanks(i + 1)) {
            if (!mayBeNameStart(text_[i])) return false;
            i = skipBlanks(i + nameLength(i));
            if (i < end && text_[i] == u'=') {
                std::size_t const from = i + 1;
                i = std::min(argumentEnd(from), end);
                auto const value =
                    parseExpression(std::u16string_view(text_).substr(from, i - from));
                if (!std::holds_alternative<Expression>(value)) return false;
            }
            if (i < end && text_[i] != u',') return false;
        }
        return true;
    }

    /// The place of the comma behind what begins at `at`; the end without one.
    std::size_t argumentEnd(std::size_t at) const {
        std::size_t depth = 0;
        for (; at < text_.size() && (depth > 0 || text_[at] != u','); ++at) {
            if (text_[at] == u'"' || text_[at] == u'\'') at = text_.find(text_[at], at + 1);
            if (at == std::u16string::npos) return text_.size();
            if (text_[at] == u'(') ++depth;
            if (text_[at] == u')' && depth > 0) --depth;
        }
        return at;
    }

    /// Whether an assignment or a function may begin at `at`.
    bool mayBegin(std::size_t at) const {
        std::size_t const left = before(at);
        if (left == std::u16string::npos || text_[left] == u'(' || text_[left] == u',') return true;
        if (left == 0) return false;
        bool const isArrow = text_[left] == u'>' && text_[left - 1] == u'=';
        bool const isAssignment = text_[left] == u'=' && text_[left - 1] != u'=' &&
                                  text_[left - 1] != u'!' && text_[left - 1] != u'<' &&
                                  text_[left - 1] != u'>';
        return isArrow || isAssignment;
    }

    /// "A;B": two statements on one line.
    bool patchSemicolon(std::size_t at) {
        std::size_t const place = text_.find(u';', at == 0 ? 0 : at - 1);
        if (place == std::u16string::npos) return false;
        text_[place] = u',';
        return isOther_ = true;
    }

    /// "F(A)=B" compiles, and fails when it runs. The call may stand in parentheses.
    bool patchCallAssignment(std::size_t at) {
        auto const sign =
            std::find_if(kPunctuators.begin(), kPunctuators.end(), [&](Punctuator const& each) {
                return text_.compare(at, each.text.size(), each.text) == 0;
            });
        bool const isAssignment = sign != kPunctuators.end() && sign->role == Role::assignment &&
                                  sign->text != u"&&=" && sign->text != u"||=";
        if (!isAssignment) return false;
        std::size_t const first = callBefore(before(at));
        if (first == std::u16string::npos || !mayBegin(first)) return false;
        text_.replace(at, sign->text.size(), u",");
        return isOther_ = true;
    }

    /// Where the call begins that `close` closes, with the parentheses around it; npos where
    /// something else stands there.
    std::size_t callBefore(std::size_t close) const {
        std::size_t first = std::u16string::npos;
        std::size_t inside = std::u16string::npos;
        for (;;) {
            std::size_t const open = opening(close);
            if (open == std::u16string::npos) return open;
            bool const isCall = nameBefore(open) < open;
            std::size_t const start = isCall ? chainBefore(before(open)) : open;
            if (inside != std::u16string::npos && start != inside) return std::u16string::npos;
            if (inside == std::u16string::npos) first = start;
            if (isCall) return start == std::u16string::npos ? start : first;
            inside = skipBlanks(open + 1);
            close = before(close);
        }
    }

    /// The start of the chain of names, calls and points whose last unit is at `last`, such as
    /// "(A==B).AND.LEN"; npos where JavaScript has no such chain.
    std::size_t chainBefore(std::size_t last) const {
        while (last != std::u16string::npos) {
            std::size_t start = last + 1;
            bool const isClosed = text_[last] == u')';
            if (isClosed) {
                start = opening(last);
                if (start == std::u16string::npos) return start;
                // The name that is called.
                std::size_t const left = before(start);
                if (left != std::u16string::npos && mayBeNamePart(text_[left])) start = left + 1;
            }
            std::size_t const end = start;
            while (start > 0 && mayBeNamePart(text_[start - 1])) --start;
            bool const isNamed = start < end;
            if (!isNamed && !isClosed) break;
            std::size_t const point = before(start);
            if (point != std::u16string::npos && text_[point] == u'.') {
                last = before(point);
                continue;
            }
            bool const isName =
                isNamed && mayBeNameStart(text_[start]) &&
                !isReservedWord(std::u16string_view(text_).substr(start, nameLength(start)));
            return isName || !isNamed ? start : std::u16string::npos;
        }
        return std::u16string::npos;
    }

    /// "F(A,)": a comma may end the arguments.
    bool patchLastComma(std::size_t at) {
        std::size_t const comma = before(at);
        if (unitAt(at) != u')' || comma == std::u16string::npos || text_[comma] != u',') {
            return false;
        }
        std::size_t const last = before(comma);
        std::size_t const open = opening(at);
        bool const isCall = open != std::u16string::npos && nameBefore(open) < open;
        if (!isCall || last == open || text_[last] == u',') return false;
        text_[comma] = u' ';
        return isOther_ = true;
    }

    /// "A:B" is a statement with a label.
    bool patchLabel(std::size_t at) {
        std::size_t const start = skipBlanks(0);
        if (unitAt(at) != u':' || unitAt(at + 1) == u'=' || !mayBeNameStart(unitAt(start))) {
            return false;
        }
        std::size_t const end = start + nameLength(start);
        std::u16string label = text_.substr(start, end - start);
        bool const isNew = std::find(labels_.begin(), labels_.end(), label) == labels_.end();
        if (skipBlanks(end) != at || isReservedWord(label) || !isNew) return false;
        labels_.push_back(std::move(label));
        std::fill_n(text_.begin(), at + 1, u' ');
        return isOther_ = true;
    }

    /// The parenthesis or bracket that `close` closes; npos where there is none.
    std::size_t opening(std::size_t close, std::u16string_view pair = u"()") const {
        if (close >= text_.size() || text_[close] != pair[1]) return std::u16string::npos;
        std::size_t depth = 0;
        for (std::size_t at = close + 1; at-- > 0;) {
            if (text_[at] == pair[1]) ++depth;
            if (text_[at] == pair[0] && --depth == 0) return at;
        }
        return std::u16string::npos;
    }

    /// Where the name in front of a call's parenthesis begins; `open` without a name.
    std::size_t nameBefore(std::size_t open) const {
        std::size_t const last = before(open);
        if (last == std::u16string::npos) return open;
        std::size_t start = last + 1;
        while (start > 0 && (mayBeNamePart(text_[start - 1]) || text_[start - 1] == u'.')) --start;
        return start <= last ? start : open;
    }

    /// The length of the name at `start`.
    std::size_t nameLength(std::size_t start) const {
        std::size_t end = start;
        while (end < text_.size() && mayBeNamePart(text_[end])) ++end;
        return end - start;
    }

    std::u16string& text_;
    std::vector<std::u16string>& labels_;
    bool& isOther_;
};

}  // namespace

bool isNameInScripts(std::u16string_view word) {
    ReservedWord const* const reserved = findReservedWord(word);
    return word == u"async" || (reserved != nullptr && reserved->mayBeVariable);
}

bool Patches::patch(Refusal const& refusal) { return Patcher(*this).patch(refusal); }

}  // namespace kx::translate
