// Calls whose function the conversion loses, or that means something else there.
#include <algorithm>
#include <array>

#include "translate/Functions.h"
#include "translate/check/Rewriter.h"

namespace kx::translate {
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
    if (function == u"ASC" || function == u"CHR" || function == u"RIGHT") {
        return renderInstalled(node, function);
    }
    if (function == u"STR") return renderNumberText(node, function);
    if (function == u"VAL" && node.childCount == 1) return renderValue(node);
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
        if (isText && settings_.isExact) {
            text += withoutLastBlanks(node.firstChild) + u"==" + withoutLastBlanks(at);
        } else {
            text += (isText ? renderLeading(value, other).text : value) + u"==" + operand(at);
        }
    }
    return {std::move(text), Binding::logicalOr, true};
}

Rewriter::Part Rewriter::renderBroken(Node const& node, std::u16string_view function) {
    if (function == u"POWER" && node.childCount == 2) {
        return operandPart(u"Math.pow(" + argument(node, 0) + u"," + argument(node, 1) + u")");
    }
    if (node.childCount != 1) return impossible();
    if (function == u"SQRT") {
        bool const isPositive = numberRange(tree_, tree_.child(node, 0)).least >= 0;
        std::u16string const number = argument(node, 0);
        return operandPart(u"Math.pow(" + (isPositive ? number : u"MAX(" + number + u",0)") +
                           u",0.5)");
    }
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
    std::u16string text = u"!(" + first + (isUpper ? u"<\"A\") .AND. " : u"<\"a\") .AND. ");
    text += first + (isUpper ? u"<=\"Z\"" : u"<=\"z\"");
    return {std::move(text), Binding::logicalAnd, true};
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
    if (function == u"PADR" || function == u"PADL" || function == u"PADC") {
        return renderPadded(node, function);
    }
    if (function == u"STRZERO" || function == u"NTOS") return renderNumberText(node, function);
    // A name that was cut means a function that may be installed.
    constexpr auto kInstalled = std::to_array<std::u16string_view>(
        {u"ALLTRIM", u"UPPER", u"LOWER", u"LEFT", u"RIGHT", u"SPACE", u"REPLICATE", u"LTRIM",
         u"OCCURS", u"CHRTRAN", u"FLOOR"});
    bool const isInstalled =
        std::find(kInstalled.begin(), kInstalled.end(), function) != kInstalled.end();
    return isInstalled ? renderInstalled(node, function) : impossible();
}

/// With arguments for which the installed function means the same.
Rewriter::Part Rewriter::renderInstalled(Node const& node, std::u16string_view function) {
    std::u16string text(function);
    if (!keepsArguments(tree_, node)) {
        NodeIndex const first = node.firstChild;
        if (function == u"ASC" && node.childCount == 1) {
            return operandPart(u"ASC(" + operand(first) + u"+CHR(0))");
        }
        if (function == u"RIGHT" && node.childCount == 2) {
            bool const isWhole = numberRange(tree_, tree_.child(node, 1)).isWhole;
            std::u16string const count = argument(node, 1);
            return operandPart(u"RIGHT(" + argument(node, 0) + u",MAX(" +
                               (isWhole ? count : u"FLOOR(" + count + u")") + u",0))");
        }
        NumberRange const code = numberRange(tree_, tree_.child(node, 0));
        bool const isPositive = code.least >= 0;
        if (function != u"CHR" || node.childCount != 1 || !(isPositive || code.isWhole)) {
            return impossible();
        }
        text = operand(first) + u"%256";
        return operandPart(u"CHR(" + (isPositive ? text : u"(" + text + u"+256)%256") + u")");
    }
    text += u'(';
    for (std::size_t i = 0; i < node.childCount; ++i) {
        if (i > 0) text += u',';
        text += argument(node, i);
    }
    return operandPart(text + u")");
}

}  // namespace kx::translate
