#include "translate/check/Rewriter.h"

#include <algorithm>
#include <array>

#include "translate/Functions.h"
#include "translate/Letters.h"

namespace kx::translate {
namespace {

constexpr Binding kSignBinding = static_cast<Binding>(static_cast<int>(Binding::power) + 1);

constexpr std::size_t kLongestRewriting = 4000;

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
        bool const isDouble = node.kind == NodeKind::sign && part.kind == NodeKind::sign;
        bool const isLoose =
            !part.isParenthesized && isBelowOperator &&
            (isDouble || (rendered.binding < bindingOf(part) && rendered.binding <= own));
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
    if (has(index, Code::textMinus)) return renderTextMinus(node);
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
    if (has(index, Code::textCompare) || ignoresLastBlanks(node)) {
        return renderCompared(node, traits(node.op).name);
    }
    if (has(index, Code::doubleSign)) {
        return {
            operand(left) + (node.op == Operator::add ? u"+(" : u"-(") + argument(node, 1) + u")",
            Binding::sum, true};
    }
    if (has(index, Code::hash) && !hasKnownKinds(node)) return impossible();
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
    std::u16string const count =
        length.least == length.most ? sizeText(length.least) : u"LEN(" + render(index).text + u")";
    return operandPart(u"LEFT(" + text + u"," + count + u")");
}

/// A comparison of texts as JavaScript has to do it.
Rewriter::Part Rewriter::renderCompared(Node const& node, std::u16string_view sign) {
    NodeIndex const left = node.firstChild;
    NodeIndex const right = tree_.nodes[left].nextSibling;
    std::u16string text = settings_.isExact
                              ? withoutLastBlanks(left)
                              : renderLeading(argument(node, 0), tree_.nodes[right]).text;
    text.append(sign).append(settings_.isExact ? withoutLastBlanks(right) : operand(right));
    return {std::move(text), Binding::comparison, true};
}

/// An operand whose blanks at the end do not count.
std::u16string Rewriter::withoutLastBlanks(NodeIndex index) {
    if (!mayEndInBlank(index)) return operand(index);
    Part const part = render(index);
    if (!part.isPossible) isPossible_ = false;
    return u"TRIM(" + part.text + u")";
}

bool Rewriter::mayEndInBlank(NodeIndex index) const {
    Node const& node = tree_.nodes[index];
    if (node.kind == NodeKind::text && !node.isEscaped) return written(node.sign).ends_with(u' ');
    if (node.function == nullptr) return true;
    std::u16string_view const function = node.function->row.name;
    return function != u"TRIM" && function != u"ALLTRIM";
}

/// Whether texts are compared, and blanks at their ends may not count.
bool Rewriter::ignoresLastBlanks(Node const& node) const {
    if (!settings_.isExact || node.op == Operator::identical) return false;
    NodeIndex const left = node.firstChild;
    NodeIndex const right = tree_.nodes[left].nextSibling;
    bool const isText =
        tree_.nodes[left].valueKind == Kind::text || tree_.nodes[right].valueKind == Kind::text;
    bool const isComparison = traits(node.op).binding == Binding::equality ||
                              traits(node.op).binding == Binding::comparison;
    return isText && isComparison && (mayEndInBlank(left) || mayEndInBlank(right));
}

/// Whether the kind of one operand is known: both have the same where they can be compared.
bool Rewriter::hasKnownKinds(Node const& node) const {
    return tree_.child(node, 0).valueKind != Kind::unknown ||
           tree_.child(node, 1).valueKind != Kind::unknown;
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
    if (!hasKnownKinds(node)) return impossible();
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

}  // namespace kx::translate
