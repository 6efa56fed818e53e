#include "translate/check/Findings.h"

#include <algorithm>
#include <array>
#include <string>

#include "convert/Converter.h"
#include "text/ReservedWords.h"
#include "text/WhiteSpace.h"
#include "translate/Functions.h"
#include "translate/Letters.h"
#include "translate/check/CallTemplate.h"
#include "translate/check/OperatorScan.h"
#include "translate/check/Ranges.h"

namespace kx::translate {
namespace {

bool containsWord(std::u16string_view text, std::u16string_view upperCaseWord) {
    return std::search(text.begin(), text.end(), upperCaseWord.begin(), upperCaseWord.end(),
                       [](char16_t a, char16_t b) { return upperCase(a) == b; }) != text.end();
}

/// Where a node stands.
struct Position {
    /// An assignment may stand there: at the start of the formula, an argument or a parenthesis.
    bool isAssignable = true;
    bool isBehindNegation = false;  // the blank in front was the negation's
    bool isText = false;            // anything but a text is an error there
};

/// Functions whose first argument is a text.
constexpr auto kTextFunctions = std::to_array<std::u16string_view>(
    {u"ALLTRIM", u"ASC", u"CHRTRAN", u"LEFT", u"LEN", u"LOWER", u"LTRIM", u"PROPER", u"REPLICATE",
     u"STRTRAN", u"SUBSTR", u"TRIM", u"UPPER", u"VAL"});

bool takesText(Node const& node) {
    return node.function != nullptr && std::find(kTextFunctions.begin(), kTextFunctions.end(),
                                                 node.function->row.name) != kTextFunctions.end();
}

class Finder {
  public:
    Finder(Tree const& tree, std::u16string_view source, Settings const& settings,
           std::vector<Found>& found)
        : tree_(tree), source_(source), settings_(settings), found_(found), scan_(source) {}

    void run() { visit(static_cast<NodeIndex>(tree_.nodes.size() - 1), {}); }

  private:
    std::u16string_view written(Place place) const {
        return source_.substr(place.start, place.end - place.start);
    }
    bool isBlankAt(std::uint32_t at) const {
        return at < source_.size() && isWhiteSpace(source_[at]);
    }
    bool hasBlanksAround(Place place) const {
        return place.start > 0 && isBlankAt(place.start - 1) && isBlankAt(place.end);
    }
    void add(Code code, NodeIndex node, Place place) { found_.push_back({code, node, place}); }

    void visit(NodeIndex index, Position position) {
        Node const& node = tree_.nodes[index];
        if (node.isParenthesized) position = {true, false, position.isText};
        switch (node.kind) {
            case NodeKind::number:
                visitNumber(index);
                break;
            case NodeKind::text:
                visitText(index);
                break;
            case NodeKind::date:
                add(Code::dateLiteral, index, node.place);
                break;
            case NodeKind::logical:
                if (source_[node.place.start] == u'.') add(Code::dottedLiteral, index, node.place);
                break;
            case NodeKind::nil:
                visitNil(index);
                break;
            case NodeKind::name:
                visitName(index);
                break;
            case NodeKind::negation:
                visitNegation(index, position);
                break;
            case NodeKind::sign:
                visit(node.firstChild, {false, false});
                break;
            case NodeKind::binary:
                visitBinary(index, position);
                break;
            case NodeKind::omitted:
                add(Code::emptyArgument, index, {node.place.start, node.place.start});
                break;
            case NodeKind::type:
                add(Code::typeTypeof, index, node.sign);
                break;
            case NodeKind::choice:
                visitArguments(node, {}, position);
                break;
            case NodeKind::call:
                visitCall(index);
                visitArguments(node, {true, false, takesText(node)}, {});
                break;
            case NodeKind::untranslatable:
                visitArguments(node, {}, {});
                break;
        }
    }

    void visitArguments(Node const& node, Position first, Position others) {
        others.isAssignable = true;
        for (NodeIndex at = node.firstChild; at != kNoNode; at = tree_.nodes[at].nextSibling) {
            visit(at, at == node.firstChild ? first : others);
        }
    }

    void visitNumber(NodeIndex index) {
        Node const& node = tree_.nodes[index];
        std::u16string_view const digits = written(node.place);
        std::size_t const count = std::min(digits.find_first_not_of(u"0123456789"), digits.size());
        if (count < 2 || digits[0] != u'0') return;
        bool const isOctal =
            digits.substr(0, count).find_first_of(u"89") == std::u16string_view::npos;
        bool const isChanged =
            digits.substr(0, count).find_first_not_of(u'0') < count - 1 || count < digits.size();
        if (isOctal && isChanged) add(Code::leadingZero, index, node.place);
    }

    void visitText(NodeIndex index) {
        Node const& node = tree_.nodes[index];
        if (source_[node.place.start] == u'[') {
            add(Code::textBracket, index, node.place);
            return;
        }
        std::u16string_view const content = written(node.sign);
        if (content.find(u'\\') != std::u16string_view::npos || node.isEscaped) {
            add(Code::textBackslash, index, node.place);
        }
        std::u16string folded(1, source_[node.place.start]);
        for (char16_t const unit : content) {
            if (!isWhiteSpace(unit)) {
                folded += unit;
            } else if (!folded.ends_with(u' ')) {
                folded += u' ';
            }
        }
        folded += source_[node.place.end - 1];
        if (std::u16string_view(folded).substr(1, folded.size() - 2) != content) {
            add(Code::textBlanks, index, node.place);
        }
        // The conversion of the text alone.
        std::u16string const alone(written(node.place));
        if (!node.isEscaped && Converter::_convert(alone.c_str()) != folded) {
            add(Code::textRewritten, index, node.place);
        }
    }

    void visitNil(NodeIndex index) {
        Node const& node = tree_.nodes[index];
        if (source_[node.place.start] == u'.') {
            add(Code::dottedLiteral, index, node.place);
        } else if (written(node.place) != u"null") {
            add(Code::nilName, index, node.place);
        }
    }

    void visitName(NodeIndex index) {
        Node const& node = tree_.nodes[index];
        if (node.hasArrow) add(Code::aliasArrow, index, node.place);
        if (node.hasPoint && !node.hasArrow) add(Code::memberDot, index, node.place);
        std::u16string_view const name = written(node.place);
        if (isDamaged(name, node.place)) add(Code::nameDamaged, index, node.place);
        if (isReservedWord(name)) add(Code::reservedName, index, node.place);
    }

    /// TRUE and FALSE are rewritten anywhere, AND and the like with one unit around them between
    /// blanks.
    bool isDamaged(std::u16string_view name, Place place) const {
        if (containsWord(name, u"TRUE") || containsWord(name, u"FALSE")) return true;
        if (!hasBlanksAround(place) || name.size() < 4) return false;
        std::u16string_view const inner = name.substr(1, name.size() - 2);
        constexpr std::array<std::u16string_view, 4> kWords{u"AND", u"NOT", u"OR", u"XOR"};
        return std::any_of(kWords.begin(), kWords.end(), [inner](std::u16string_view word) {
            return inner.size() == word.size() && containsWord(inner, word);
        });
    }

    void visitNegation(NodeIndex index, Position position) {
        Node const& node = tree_.nodes[index];
        Node const& operand = tree_.nodes[node.firstChild];
        std::u16string_view const sign = written(node.sign);
        bool const isWord = sign != u"!";
        bool const isConverted = isWord && hasBlanksAround(node.sign) &&
                                 sign.find_first_of(u" \t\u00A0") == std::u16string_view::npos &&
                                 !position.isBehindNegation;
        if (isWord && !isConverted) add(Code::notPlace, index, node.sign);
        bool const isPower = operand.kind == NodeKind::binary && operand.op == Operator::power;
        if (operand.kind == NodeKind::binary && !operand.isParenthesized && !isPower) {
            add(Code::notTight, index, node.sign);
        }
        bool const isNext = isConverted && operand.kind == NodeKind::negation &&
                            operand.sign.start == node.sign.end + 1;
        visit(node.firstChild, {false, isNext});
    }

    void visitBinary(NodeIndex index, Position position) {
        Node const& node = tree_.nodes[index];
        Node const& left = tree_.child(node, 0);
        Node const& right = tree_.child(node, 1);
        std::u16string_view const sign = written(node.sign);
        if (scan_.isMissed(node.sign)) add(Code::textQuote, index, node.sign);
        switch (node.op) {
            case Operator::equal:
                add(equalsCode(node, position.isAssignable), index, node.sign);
                break;
            case Operator::greaterOrEqual:
                add(Code::geArrow, index, node.sign);
                break;
            case Operator::contained:
                add(Code::contains, index, node.sign);
                break;
            case Operator::logicalAnd:
            case Operator::logicalOr:
                if (!hasBlanksAround(node.sign) ||
                    sign.find_first_of(u" \t\u00A0") != std::u16string_view::npos) {
                    add(Code::logicBlanks, index, node.sign);
                }
                break;
            case Operator::logicalXor:
                add(Code::wordXor, index, node.sign);
                break;
            case Operator::power:
                if (!isPowerOfLiterals(node)) add(Code::powerXor, index, node.sign);
                break;
            case Operator::unequal:
                if (sign == u"#") add(Code::hash, index, node.sign);
                break;
            case Operator::add:
            case Operator::subtract:
                visitSum(index, right, position);
                break;
            default:
                break;
        }
        if (isPartialComparison(tree_, node) && !settings_.isExact) {
            add(Code::textCompare, index, node.sign);
        }
        bool const isSum = node.op == Operator::add || node.op == Operator::subtract;
        bool const isTextSum = isSum && (position.isText || node.valueKind == Kind::text);
        bool const isCompared = traits(node.op).binding == Binding::equality ||
                                traits(node.op).binding == Binding::comparison;
        auto const wantsText = [&](Node const& other) {
            return isTextSum || node.op == Operator::contained ||
                   (isCompared && other.valueKind == Kind::text);
        };
        visit(node.firstChild, {position.isAssignable, false, wantsText(right)});
        bool const isChain = node.op == Operator::equal && position.isAssignable;
        visit(left.nextSibling, {isChain, false, wantsText(left)});
    }

    /// What stands to the left of "=" for JavaScript: a name, a call, or something else.
    Code equalsCode(Node const& node, bool isAssignable) const {
        if (!isAssignable) return Code::equalsInvalid;
        Node const* target = &tree_.child(node, 0);
        while (target->kind == NodeKind::binary && target->op == Operator::equal &&
               !target->isParenthesized) {
            target = &tree_.child(*target, 1);
        }
        if (target->kind == NodeKind::name || target->kind == NodeKind::nil) {
            return written(target->place) == u"null" || target->hasArrow ? Code::equalsInvalid
                                                                         : Code::equalsAssigns;
        }
        bool const isCall = target->kind == NodeKind::call || target->kind == NodeKind::choice;
        bool const becomesOperator = isCall && target->function != nullptr &&
                                     std::u16string_view(target->function->row.name) == u"MOD";
        return isCall && !becomesOperator ? Code::equalsCall : Code::equalsInvalid;
    }

    /// The rule for powers takes digits, one unit and digits on each side.
    bool isPowerOfLiterals(Node const& node) const {
        Node const& left = tree_.child(node, 0);
        Node const& right = tree_.child(node, 1);
        auto const isPlain = [this](Node const& number) {
            std::u16string_view const digits = written(number.place);
            return number.kind == NodeKind::number && !number.isParenthesized &&
                   isDigit(digits[0]) &&
                   digits.find_first_not_of(u"0123456789.") == std::u16string_view::npos;
        };
        if (!isPlain(left) || !isPlain(right)) return false;
        std::uint32_t const start = left.place.start;
        bool const isBehindDigits = start >= 2 && isDigit(source_[start - 2]) &&
                                    written(left.place).find(u'.') == std::u16string_view::npos;
        std::uint32_t const end = right.place.end;
        bool const isTaken = end < source_.size() && !isWhiteSpace(source_[end]) &&
                             source_[end] != u')' &&
                             written(right.place).find(u'.') == std::u16string_view::npos;
        return !isBehindDigits && !isTaken;
    }

    void visitSum(NodeIndex index, Node const& right, Position position) {
        Node const& node = tree_.nodes[index];
        bool const isMinus = node.op == Operator::subtract;
        bool const isDouble = right.kind == NodeKind::sign && !right.isParenthesized &&
                              right.isNegative == isMinus && right.place.start == node.sign.end;
        if (isDouble) add(Code::doubleSign, index, node.sign);
        bool const isText = position.isText || node.valueKind == Kind::text;
        if (isMinus && isText) add(Code::textMinus, index, node.sign);
    }

    void visitCall(NodeIndex index) {
        Node const& node = tree_.nodes[index];
        std::u16string_view const name = written(node.sign);
        if (isDamaged(name, node.sign)) {
            add(Code::nameDamaged, index, node.sign);
            return;
        }
        switch (callTemplate(name, node).form) {
            case CallTemplate::Form::differs:
                add(Code::functionDiffers, index, node.sign);
                break;
            case CallTemplate::Form::unknown:
                add(Code::functionUnknown, index, node.sign);
                break;
            case CallTemplate::Form::broken:
                add(Code::functionBroken, index, node.sign);
                break;
            case CallTemplate::Form::kept:
                if (!keepsArguments(tree_, node)) add(Code::functionDiffers, index, node.sign);
                break;
        }
        if (node.callee == Callee::language && isCut(node)) {
            add(Code::argumentCut, index, node.sign);
        }
    }

    /// Whether the rule for the function takes its arguments apart at the wrong places.
    bool isCut(Node const& node) const {
        std::u16string_view const function = node.function->row.name;
        if (function == u"LOG10" && node.childCount > 0) {
            return written(tree_.child(node, 0).place).find(u')') != std::u16string_view::npos ||
                   tree_.child(node, 0).isParenthesized;
        }
        if (function != u"MOD" || node.childCount != 2) return false;
        Node const& first = tree_.child(node, 0);
        Node const& second = tree_.child(node, 1);
        bool const isProduct = first.op == Operator::multiply || first.op == Operator::divide ||
                               first.op == Operator::remainder;
        auto const isLoose = [](Node const& argument) {
            return (argument.kind == NodeKind::binary || argument.kind == NodeKind::negation) &&
                   !argument.isParenthesized;
        };
        return written(first.place).find(u',') != std::u16string_view::npos ||
               (isLoose(first) && !isProduct) || isLoose(second);
    }

    Tree const& tree_;
    std::u16string_view source_;
    Settings const& settings_;
    std::vector<Found>& found_;
    OperatorScan scan_;
};

}  // namespace

bool isPartialComparison(Tree const& tree, Node const& node) {
    bool const isComparison = node.op == Operator::unequal || node.op == Operator::less ||
                              node.op == Operator::greater || node.op == Operator::lessOrEqual ||
                              node.op == Operator::greaterOrEqual;
    if (node.kind != NodeKind::binary || !isComparison) return false;
    Node const& left = tree.child(node, 0);
    Node const& right = tree.child(node, 1);
    if (left.valueKind != Kind::text && right.valueKind != Kind::text) return false;
    // Where the right text goes on as long as the left one, all of that is compared.
    return textLength(tree, left).most > textLength(tree, right).least;
}

std::vector<Found> findDamage(Tree const& tree, std::u16string_view source,
                              Settings const& settings,
                              std::vector<Untranslatable> const& obstacles) {
    std::vector<Found> found;
    Finder(tree, source, settings, found).run();
    for (Untranslatable const& obstacle : obstacles) {
        if (obstacle.code == u"FUNCTION_UNKNOWN") continue;  // the call has a finding
        Code const code = obstacle.code.starts_with(u"DATE") ? Code::dateLiteral
                          : obstacle.code == u"TYPE_TEXT"    ? Code::typeTypeof
                                                             : Code::untranslatable;
        found.push_back({code, obstacle.node, obstacle.place, obstacle.code});
        // EVAL, which the rules misspell.
        if (obstacle.code == u"MACRO" && isNameStart(source[obstacle.place.start])) {
            found.push_back({Code::functionBroken, obstacle.node, obstacle.place});
        }
    }
    return found;
}

}  // namespace kx::translate
