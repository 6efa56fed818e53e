#include "translate/check/Ranges.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "translate/Functions.h"

namespace kx::translate {
namespace {

constexpr double kByteValues = 256;

NumberRange binaryRange(Tree const& tree, Node const& node) {
    bool const isSum = node.op == Operator::add;
    bool const isProduct = node.op == Operator::multiply;
    bool const isRemainder = node.op == Operator::remainder;
    if (!isSum && !isProduct && !isRemainder && node.op != Operator::subtract) return {};
    NumberRange const left = numberRange(tree, tree.child(node, 0));
    NumberRange const right = numberRange(tree, tree.child(node, 1));
    bool const isWhole = left.isWhole && right.isWhole;
    if (isSum) return {left.least + right.least, left.most + right.most, isWhole};
    if (node.op == Operator::subtract) {
        return {left.least - right.most, left.most - right.least, isWhole};
    }
    if (isProduct) {
        bool const isPositive = left.least >= 0 && right.least >= 0;
        return {isPositive ? 0 : NumberRange{}.least, NumberRange{}.most, isWhole};
    }
    if (!(right.least > 0) || right.least != right.most) return {};
    // The rest has the sign of the dividend.
    double const most = isWhole ? right.most - 1 : std::nextafter(right.most, 0.0);
    return {left.least >= 0 ? 0 : -most, most, isWhole};
}

NumberRange either(NumberRange a, NumberRange b) {
    return {std::min(a.least, b.least), std::max(a.most, b.most), a.isWhole && b.isWhole};
}

/// Of MAX and MIN.
NumberRange extremeRange(Tree const& tree, Node const& call, bool isMost) {
    NumberRange range = numberRange(tree, tree.child(call, 0));
    for (NodeIndex at = tree.nodes[call.firstChild].nextSibling; at != kNoNode;
         at = tree.nodes[at].nextSibling) {
        NumberRange const next = numberRange(tree, tree.nodes[at]);
        auto const choose = [isMost](double a, double b) {
            return isMost ? std::max(a, b) : std::min(a, b);
        };
        range = {choose(range.least, next.least), choose(range.most, next.most),
                 range.isWhole && next.isWhole};
    }
    return range;
}

NumberRange callRange(Tree const& tree, Node const& call) {
    if (call.function == nullptr || call.childCount == 0) return {};
    std::u16string_view const function = call.function->row.name;
    constexpr double kNoBound = std::numeric_limits<double>::infinity();
    if (function == u"ASC") return {0, 0xFFFF, true};
    if (function == u"LEN" || function == u"OCCURS" || function == u"AT" || function == u"RAT") {
        return {0, kNoBound, true};
    }
    if (function == u"ABS") return {0, kNoBound, numberRange(tree, tree.child(call, 0)).isWhole};
    if (function == u"MAX" || function == u"MIN") {
        return extremeRange(tree, call, function == u"MAX");
    }
    if (function != u"INT" && function != u"FLOOR" && function != u"CEILING") return {};
    NumberRange const range = numberRange(tree, tree.child(call, 0));
    return {std::floor(range.least), std::ceil(range.most), true};
}

}  // namespace

TextLength textLength(Tree const& tree, Node const& node) {
    if (node.kind == NodeKind::text && !node.isEscaped) {
        std::uint32_t const length = node.sign.end - node.sign.start;
        return {length, length};
    }
    if (node.kind == NodeKind::binary && node.valueKind == Kind::text) {
        TextLength const left = textLength(tree, tree.child(node, 0));
        TextLength const right = textLength(tree, tree.child(node, 1));
        std::uint32_t const largest = TextLength{}.most - left.most;
        return {left.least + right.least, left.most + std::min(right.most, largest)};
    }
    if (node.function == nullptr || node.childCount == 0) return {};
    std::u16string_view const function = node.function->row.name;
    if (function == u"CHR") return {1, 1};
    bool const isPart = function == u"LEFT" || function == u"RIGHT";
    std::size_t const which = isPart ? 1 : function == u"SUBSTR" ? 2 : node.childCount;
    if (which >= node.childCount) return {};
    Node const& count = tree.child(node, which);
    constexpr double kLongest = 1e6;
    if (count.kind != NodeKind::number || count.number > kLongest) return {};
    return {0, static_cast<std::uint32_t>(count.number)};
}

NumberRange numberRange(Tree const& tree, Node const& node) {
    switch (node.kind) {
        case NodeKind::number:
            return {node.number, node.number, std::trunc(node.number) == node.number};
        case NodeKind::sign: {
            NumberRange const range = numberRange(tree, tree.child(node, 0));
            if (!node.isNegative) return range;
            return {-range.most, -range.least, range.isWhole};
        }
        case NodeKind::binary:
            return binaryRange(tree, node);
        case NodeKind::call:
            return callRange(tree, node);
        case NodeKind::choice:
            if (node.childCount != 3) return {};
            return either(numberRange(tree, tree.child(node, 1)),
                          numberRange(tree, tree.child(node, 2)));
        default:
            return {};
    }
}

bool keepsArguments(Tree const& tree, Node const& call) {
    if (call.callee != Callee::language || call.childCount == 0) return true;
    std::u16string_view const function = call.function->row.name;
    if (function == u"ASC") return textLength(tree, tree.child(call, 0)).least > 0;
    if (function == u"OCCURS") return textLength(tree, tree.child(call, 0)).most > 0;
    if (function == u"CHR") {
        NumberRange const code = numberRange(tree, tree.child(call, 0));
        return code.least > -1 && code.most < kByteValues;
    }
    if (function != u"RIGHT" || call.childCount == 1) return true;
    NumberRange const count = numberRange(tree, tree.child(call, 1));
    return count.least >= 1 || (count.least >= 0 && count.isWhole);
}

}  // namespace kx::translate
