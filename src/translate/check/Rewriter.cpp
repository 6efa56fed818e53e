#include "translate/check/Rewriter.h"

#include <algorithm>
#include <array>

#include "translate/Functions.h"
#include "translate/Letters.h"
#include "translate/Operators.h"

namespace kx::translate {
namespace {

/// Above all operators: operands, calls, what stands in parentheses.
constexpr Binding kOperandBinding = static_cast<Binding>(static_cast<int>(Binding::power) + 2);
constexpr Binding kSignBinding = static_cast<Binding>(static_cast<int>(Binding::power) + 1);

constexpr std::size_t kLongestRewriting = 4000;

std::u16string numberText(std::size_t number) {
    std::string const digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string inParentheses(std::u16string const& text) { return u"(" + text + u")"; }

Binding bindingOf(Node const& node) {
    switch (node.kind) {
        case NodeKind::negation:
            return Binding::negation;
        case NodeKind::sign:
            return kSignBinding;
        case NodeKind::binary:
            return traits(node.op).binding;
        default:
            return kOperandBinding;
    }
}

bool isWholeFrom(Node const& node, double least) {
    return node.kind == NodeKind::number && node.scale == 0 && node.number >= least;
}

}  // namespace

Rewriter::Rewriter(Tree const& tree, std::u16string_view source, Settings const& settings,
                   std::vector<Found> const& found)
    : tree_(tree), source_(source), settings_(settings), codes_(tree.nodes.size()) {
    for (Found const& each : found) {
        codes_[each.node] |= std::uint64_t{1} << static_cast<int>(each.code);
    }
}

std::u16string Rewriter::rewrite(NodeIndex node) {
    isPossible_ = true;
    written_ = 0;
    Part part = render(node);
    if (!part.isPossible || !isPossible_) return {};
    // In place of the node; a bare operand's parentheses may be lost on those around it.
    if (!tree_.nodes[node].isParenthesized && part.binding < bindingOf(tree_.nodes[node]) &&
        node + 1 != tree_.nodes.size()) {
        return inParentheses(part.text);
    }
    return std::move(part.text);
}

Rewriter::Part Rewriter::operandPart(std::u16string text) {
    return {std::move(text), kOperandBinding, true};
}

std::u16string Rewriter::operand(NodeIndex index) {
    Part const part = render(index);
    if (!part.isPossible) isPossible_ = false;
    return part.binding == kOperandBinding ? part.text : inParentheses(part.text);
}

std::u16string Rewriter::argument(Node const& call, std::size_t which) {
    NodeIndex index = call.firstChild;
    while (which-- > 0) index = tree_.nodes[index].nextSibling;
    Part const part = render(index);
    if (!part.isPossible) isPossible_ = false;
    return part.text;
}

Rewriter::Part Rewriter::render(NodeIndex index) {
    Node const& node = tree_.nodes[index];
    written_ += node.place.end - node.place.start;
    if (written_ > kLongestRewriting) return impossible();
    switch (node.kind) {
        case NodeKind::number:
            if (has(index, Code::leadingZero)) {
                std::u16string_view digits = written(node.place);
                while (digits.size() > 1 && digits[0] == u'0' && isDigit(digits[1])) {
                    digits.remove_prefix(1);
                }
                return operandPart(std::u16string(digits));
            }
            return copy(index);
        case NodeKind::text:
            return renderText(index);
        case NodeKind::logical:
            if (!has(index, Code::dottedLiteral)) return copy(index);
            return operandPart(node.isNegative ? u"FALSE" : u"TRUE");
        case NodeKind::nil:
            return operandPart(u"null");
        case NodeKind::name:
            return renderName(index);
        case NodeKind::negation:
            return renderNegation(index);
        case NodeKind::binary:
            return renderBinary(index);
        case NodeKind::sign:
        case NodeKind::choice:
            return copy(index);
        case NodeKind::call:
            return renderCall(index);
        case NodeKind::omitted:
            return operandPart(u"null");
        default:
            return impossible();
    }
}

/// The node as it stands, with its children rewritten.
Rewriter::Part Rewriter::copy(NodeIndex index) {
    Node const& node = tree_.nodes[index];
    Part whole{{}, bindingOf(node), true};
    std::uint32_t at = node.place.start;
    for (NodeIndex child = node.firstChild; child != kNoNode;
         child = tree_.nodes[child].nextSibling) {
        Node const& part = tree_.nodes[child];
        whole.text += source_.substr(at, part.place.start - at);
        Part const rendered = render(child);
        if (!rendered.isPossible) return impossible();
        bool const isBelowOperator = node.kind == NodeKind::binary || node.kind == NodeKind::sign ||
                                     node.kind == NodeKind::negation;
        // A negation takes one operand in JavaScript.
        Binding const own = node.kind == NodeKind::negation ? kOperandBinding : bindingOf(node);
        bool const isLoose = !part.isParenthesized && isBelowOperator &&
                             rendered.binding < bindingOf(part) && rendered.binding <= own;
        whole.text += isLoose ? inParentheses(rendered.text) : rendered.text;
        at = part.place.end;
    }
    whole.text += source_.substr(at, node.place.end - at);
    return whole;
}

/// A word inside a name is found between blanks only.
Rewriter::Part Rewriter::renderName(NodeIndex index) {
    if (codes_[index] == 0) return copy(index);
    if (!has(index, Code::nameDamaged)) return impossible();
    return operandPart(inParentheses(std::u16string(written(tree_.nodes[index].place))));
}

Rewriter::Part Rewriter::renderNegation(NodeIndex index) {
    Node const& node = tree_.nodes[index];
    if (!has(index, Code::notPlace) && !has(index, Code::notTight)) return copy(index);
    return {u"!" + operand(node.firstChild), Binding::negation, true};
}

Rewriter::Part Rewriter::renderBinary(NodeIndex index) {
    Node const& node = tree_.nodes[index];
    NodeIndex const left = node.firstChild;
    NodeIndex const right = tree_.nodes[left].nextSibling;
    auto const joined = [&](std::u16string_view sign, Operator op) {
        std::u16string text = operand(left);
        text.append(sign).append(operand(right));
        return Part{std::move(text), traits(op).binding, true};
    };
    if (has(index, Code::textMinus)) return impossible();
    switch (node.op) {
        case Operator::equal:
            return renderEqual(node);
        case Operator::greaterOrEqual:
            return renderGreaterOrEqual(node);
        case Operator::contained:
            return renderContained(node);
        case Operator::logicalXor:
            return joined(u"<>", Operator::unequal);
        case Operator::logicalAnd:
        case Operator::logicalOr:
            if (!has(index, Code::logicBlanks)) return copy(index);
            return joined(node.op == Operator::logicalAnd ? u" .AND. " : u" .OR. ", node.op);
        case Operator::power:
            if (!has(index, Code::powerXor)) return copy(index);
            return operandPart(u"Math.pow(" + argument(node, 0) + u"," + argument(node, 1) + u")");
        default:
            break;
    }
    if (has(index, Code::textCompare)) return renderCompared(node, traits(node.op).name);
    if (has(index, Code::doubleSign)) {
        return {
            operand(left) + (node.op == Operator::add ? u"+(" : u"-(") + argument(node, 1) + u")",
            Binding::sum, true};
    }
    if (has(index, Code::hash) || has(index, Code::textQuote)) {
        std::u16string sign = u" ";
        sign.append(node.op == Operator::power ? u"^" : traits(node.op).name).append(u" ");
        return joined(sign, node.op);
    }
    return copy(index);
}

/// The empty text is contained in nothing, and occurs everywhere.
Rewriter::Part Rewriter::renderContained(Node const& node) {
    std::u16string const sought = argument(node, 0);
    std::u16string occurs = u"OCCURS(" + sought + u"," + argument(node, 1) + u")>0";
    TextLength const length = textLength(tree_, tree_.child(node, 0));
    if (length.most == 0) return impossible();
    if (length.least > 0) return {std::move(occurs), Binding::comparison, true};
    return {u"LEN(" + sought + u")>0 .AND. " + occurs, Binding::logicalAnd, true};
}

/// The beginning of a text that is as long as `right`.
Rewriter::Part Rewriter::renderLeading(std::u16string const& text, Node const& right) {
    TextLength const length = textLength(tree_, right);
    auto const index = static_cast<NodeIndex>(&right - tree_.nodes.data());
    std::u16string const count = length.least == length.most ? numberText(length.least)
                                                             : u"LEN(" + render(index).text + u")";
    return operandPart(u"LEFT(" + text + u"," + count + u")");
}

/// A comparison of texts as JavaScript has to do it.
Rewriter::Part Rewriter::renderCompared(Node const& node, std::u16string_view sign) {
    if (settings_.isExact) return impossible();
    Node const& right = tree_.child(node, 1);
    std::u16string text = renderLeading(argument(node, 0), right).text;
    text.append(sign).append(operand(tree_.nodes[node.firstChild].nextSibling));
    return {std::move(text), Binding::comparison, true};
}

Rewriter::Part Rewriter::renderEqual(Node const& node) {
    NodeIndex const left = node.firstChild;
    Kind const leftKind = tree_.nodes[left].valueKind;
    Kind const rightKind = tree_.child(node, 1).valueKind;
    if (leftKind == Kind::text || rightKind == Kind::text) {
        Part part = renderCompared(node, u"==");
        part.binding = Binding::equality;
        return part;
    }
    bool const isKnown = leftKind == Kind::number || leftKind == Kind::logical ||
                         rightKind == Kind::number || rightKind == Kind::logical ||
                         leftKind == Kind::nil || rightKind == Kind::nil;
    if (!isKnown) return impossible();
    return {operand(left) + u"==" + operand(tree_.nodes[left].nextSibling), Binding::equality,
            true};
}

Rewriter::Part Rewriter::renderGreaterOrEqual(Node const& node) {
    NodeIndex const left = node.firstChild;
    Node const& right = tree_.child(node, 1);
    bool const isText = tree_.nodes[left].valueKind == Kind::text || right.valueKind == Kind::text;
    std::u16string const less = isText
                                    ? renderCompared(node, u"<").text
                                    : operand(left) + u"<" + operand(tree_.nodes[left].nextSibling);
    if (isText && settings_.isExact) return impossible();
    return {u"!(" + less + u")", Binding::negation, true};
}

Rewriter::Part Rewriter::renderText(NodeIndex index) {
    Node const& node = tree_.nodes[index];
    bool const hasCoded = inTexts_ == Parentheses::coded &&
                          written(node.sign).find_first_of(u"()") != std::u16string_view::npos;
    bool const isKept =
        codes_[index] == 0 && !hasCoded &&
        written(node.place).find_first_of(written(node.place)[0] == u'"' ? u"'" : u"\"") ==
            std::u16string_view::npos;
    if (isKept) return copy(index);
    if (node.isEscaped) return impossible();
    std::u16string text = safeText(written(node.sign), inTexts_);
    bool const isSum = text.find(u'+') != std::u16string::npos && text != copy(index).text;
    return {std::move(text), isSum ? Binding::sum : kOperandBinding, true};
}

Rewriter::Part Rewriter::renderCall(NodeIndex index) {
    Node const& node = tree_.nodes[index];
    if (codes_[index] == 0) return copy(index);
    if (node.callee != Callee::language || has(index, Code::nameDamaged)) return impossible();
    std::u16string_view const function = node.function->row.name;
    if (has(index, Code::functionDiffers) || has(index, Code::argumentCut)) {
        return renderDiffering(node, function);
    }
    return has(index, Code::functionBroken) ? renderBroken(node, function)
                                            : renderUnknown(node, function);
}

Rewriter::Part Rewriter::renderDiffering(Node const& node, std::u16string_view function) {
    if (function == u"SUBSTR" || function == u"STUFF") return renderSubstring(node, function);
    if (function == u"AT" || function == u"RAT") return renderPosition(node, function);
    if (function == u"INT" && node.childCount == 1) return renderInteger(node);
    if (function == u"BETWEEN" && node.childCount == 3) return renderBetween(node);
    if (function == u"INLIST" && node.childCount > 1) return renderInList(node);
    if (function == u"LOG10" && node.childCount == 1) {
        return {u"LOG(" + argument(node, 0) + u")/LOG(10)", Binding::product, true};
    }
    if (function == u"MOD" && node.childCount == 2) {
        std::u16string const divisor = operand(tree_.nodes[node.firstChild].nextSibling);
        return {
            u"((" + operand(node.firstChild) + u"%" + divisor + u")+" + divisor + u")%" + divisor,
            Binding::product, true};
    }
    if (function == u"ROUND" && node.childCount == 2 && isWholeFrom(tree_.child(node, 1), 0)) {
        return operandPart(u"VAL(ROUND(" + argument(node, 0) + u"," + argument(node, 1) + u"))");
    }
    return impossible();
}

/// Positions count from 0. Where the position is no literal it may be 0 or negative.
Rewriter::Part Rewriter::renderSubstring(Node const& node, std::u16string_view function) {
    bool const isStuff = function == u"STUFF";
    if (node.childCount < 2 || !isWholeFrom(tree_.child(node, 1), 1)) return impossible();
    if (isStuff && (node.childCount != 4 || !isWholeFrom(tree_.child(node, 2), 0))) {
        return impossible();
    }
    bool const hasCount = !isStuff && node.childCount == 3;
    if (hasCount && !isWholeFrom(tree_.child(node, 2), 1)) return impossible();
    if (node.childCount > 4 || (!isStuff && node.childCount > 3)) return impossible();
    std::u16string text(function);
    text += u"(" + argument(node, 0) + u"," + argument(node, 1) + u"-1";
    for (std::size_t i = 2; i < node.childCount; ++i) text += u"," + argument(node, i);
    return operandPart(text + u")");
}

Rewriter::Part Rewriter::renderPosition(Node const& node, std::u16string_view function) {
    if (node.childCount != 2) return impossible();
    Node const& sought = tree_.child(node, 0);
    if (textLength(tree_, sought).least == 0) return impossible();
    return {std::u16string(function) + u"(" + argument(node, 1) + u"," + argument(node, 0) + u")+1",
            Binding::sum, true};
}

Rewriter::Part Rewriter::renderInteger(Node const& node) {
    std::u16string const number = argument(node, 0);
    std::u16string const compared = operand(node.firstChild);
    return operandPart(u"IIF(" + compared + u"<0,CEIL(" + number + u"),FLOOR(" + number + u"))");
}

Rewriter::Part Rewriter::renderBetween(Node const& node) {
    bool isNumber = false;
    for (NodeIndex at = node.firstChild; at != kNoNode; at = tree_.nodes[at].nextSibling) {
        isNumber = isNumber || tree_.nodes[at].valueKind == Kind::number;
    }
    if (!isNumber) return impossible();
    NodeIndex const low = tree_.nodes[node.firstChild].nextSibling;
    std::u16string const value = operand(node.firstChild);
    return {u"!(" + value + u"<" + operand(low) + u") .AND. " + value + u"<=" +
                operand(tree_.nodes[low].nextSibling),
            Binding::logicalAnd, true};
}

Rewriter::Part Rewriter::renderInList(Node const& node) {
    if (settings_.isExact) return impossible();
    std::u16string const value = operand(node.firstChild);
    Kind const kind = tree_.nodes[node.firstChild].valueKind;
    std::u16string text;
    for (NodeIndex at = tree_.nodes[node.firstChild].nextSibling; at != kNoNode;
         at = tree_.nodes[at].nextSibling) {
        Node const& other = tree_.nodes[at];
        if (!text.empty()) text += u" .OR. ";
        bool const isText = other.valueKind == Kind::text || kind == Kind::text;
        bool const isNumber = other.valueKind == Kind::number || kind == Kind::number;
        if (!isText && !isNumber) return impossible();
        text += (isText ? renderLeading(value, other).text : value) + u"==" + operand(at);
    }
    return {std::move(text), Binding::logicalOr, true};
}

Rewriter::Part Rewriter::renderBroken(Node const& node, std::u16string_view function) {
    if (function == u"POWER" && node.childCount == 2) {
        return operandPart(u"Math.pow(" + argument(node, 0) + u"," + argument(node, 1) + u")");
    }
    if (node.childCount != 1) return impossible();
    if (function == u"SQRT") return operandPart(u"Math.pow(" + argument(node, 0) + u",0.5)");
    if (function == u"EXP") {
        return operandPart(u"Math.pow(2.718281828459045," + argument(node, 0) + u")");
    }
    if (function == u"ASIN") return operandPart(u"ASN(" + argument(node, 0) + u")");
    if (function == u"ACOS") return operandPart(u"ACS(" + argument(node, 0) + u")");
    if (function == u"ATAN") return operandPart(u"ATN(" + argument(node, 0) + u")");
    if (function == u"SIGN") {
        std::u16string const number = operand(node.firstChild);
        return operandPart(u"IIF(" + number + u">0,1,IIF(" + number + u"<0,-1,0))");
    }
    bool const isUpper = function == u"ISUPPER";
    if (!isUpper && function != u"ISLOWER") return impossible();
    std::u16string const first = u"LEFT(" + argument(node, 0) + u",1)";
    return {first + (isUpper ? u"<>LOWER(" : u"<>UPPER(") + first + u")", Binding::equality, true};
}

Rewriter::Part Rewriter::renderUnknown(Node const& node, std::u16string_view function) {
    if (function == u"EMPTY" && node.childCount == 1) {
        switch (tree_.child(node, 0).valueKind) {
            case Kind::text:
                return {u"LEN(ALLTRIM(" + argument(node, 0) + u"))==0", Binding::equality, true};
            case Kind::number:
                return {operand(node.firstChild) + u"==0", Binding::equality, true};
            case Kind::logical:
                return {u"!" + operand(node.firstChild), Binding::negation, true};
            default:
                return impossible();
        }
    }
    if (function == u"PADR" || function == u"PADL") return renderPadded(node);
    // A name that was cut means a function that may be installed.
    constexpr auto kInstalled = std::to_array<std::u16string_view>(
        {u"ALLTRIM", u"UPPER", u"LOWER", u"LEFT", u"RIGHT", u"SPACE", u"REPLICATE", u"LTRIM",
         u"OCCURS", u"CHRTRAN", u"FLOOR"});
    bool const isInstalled =
        std::find(kInstalled.begin(), kInstalled.end(), function) != kInstalled.end();
    if (!isInstalled) return impossible();
    std::u16string text(function);
    text += u'(';
    for (std::size_t i = 0; i < node.childCount; ++i) {
        if (i > 0) text += u',';
        text += argument(node, i);
    }
    return operandPart(text + u")");
}

Rewriter::Part Rewriter::renderPadded(Node const& node) {
    bool const isKnown = node.childCount == 2 && tree_.child(node, 0).valueKind == Kind::text &&
                         isWholeFrom(tree_.child(node, 1), 1);
    if (!isKnown) return impossible();
    std::u16string const width = argument(node, 1);
    bool const isLeft = node.function->row.name == std::u16string_view(u"PADL");
    if (!isLeft) {
        return operandPart(u"LEFT(" + operand(node.firstChild) + u"+SPACE(" + width + u")," +
                           width + u")");
    }
    if (textLength(tree_, tree_.child(node, 0)).most > tree_.child(node, 1).number) {
        return impossible();
    }
    return operandPart(u"RIGHT(SPACE(" + width + u")+" + operand(node.firstChild) + u"," + width +
                       u")");
}

}  // namespace kx::translate
