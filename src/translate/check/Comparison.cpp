#include "translate/check/Comparison.h"

#include <algorithm>

#include "text/WhiteSpace.h"
#include "translate/Letters.h"
#include "translate/check/CallTemplate.h"

namespace kx::translate {
namespace {

using JsKind = kx::NodeKind;

/// The operation that has the meaning, but for powers and what has none.
Operation operationOf(Operator op) {
    switch (op) {
        case Operator::logicalOr:
            return Operation::logicalOr;
        case Operator::logicalAnd:
            return Operation::logicalAnd;
        case Operator::identical:
            return Operation::equal;
        case Operator::unequal:
            return Operation::notEqual;
        case Operator::less:
            return Operation::less;
        case Operator::greater:
            return Operation::greater;
        case Operator::lessOrEqual:
            return Operation::lessOrEqual;
        case Operator::greaterOrEqual:
            return Operation::greaterOrEqual;
        case Operator::add:
            return Operation::add;
        case Operator::subtract:
            return Operation::subtract;
        case Operator::multiply:
            return Operation::multiply;
        case Operator::divide:
            return Operation::divide;
        case Operator::remainder:
            return Operation::remainder;
        default:
            return Operation::none;
    }
}

char16_t hexadecimalDigit(char16_t unit) {
    return static_cast<char16_t>(isDigit(unit) ? unit - u'0' : upperCase(unit) - u'A' + 10);
}

}  // namespace

std::u16string textValue(std::u16string_view source, Node const& text) {
    std::u16string_view const content =
        source.substr(text.sign.start, text.sign.end - text.sign.start);
    if (!text.isEscaped) return std::u16string(content);
    std::u16string value;
    for (std::size_t i = 0; i < content.size(); ++i) {
        if (content[i] != u'\\') {
            value += content[i];
            continue;
        }
        switch (content[++i]) {
            case u'n':
                value += u'\n';
                break;
            case u'r':
                value += u'\r';
                break;
            case u't':
                value += u'\t';
                break;
            case u'x':
                value += static_cast<char16_t>(hexadecimalDigit(content[i + 1]) * 16 +
                                               hexadecimalDigit(content[i + 2]));
                i += 2;
                break;
            default:
                value += content[i];
        }
    }
    return value;
}

bool Comparison::isSame() {
    return same(static_cast<NodeIndex>(tree_.nodes.size() - 1), expression_.root());
}

bool Comparison::same(NodeIndex index, kx::Node const& js) {
    Node const& node = tree_.nodes[index];
    switch (node.kind) {
        case NodeKind::number:
            return js.kind == JsKind::number && js.number == node.number;
        case NodeKind::text:
            return sameText(index, js);
        case NodeKind::logical:
            return js.kind == JsKind::boolean && (js.number != 0) == !node.isNegative;
        case NodeKind::nil:
            return js.kind == JsKind::null ||
                   (js.kind == JsKind::name && expression_.text(js) == written(node.place));
        case NodeKind::name:
            return sameName(node, js);
        case NodeKind::negation:
            return sameNegation(node, js);
        case NodeKind::sign:
            return js.kind == JsKind::unary &&
                   js.operation == (node.isNegative ? Operation::minus : Operation::plus) &&
                   same(node.firstChild, expression_.child(js, 0));
        case NodeKind::binary:
            return sameBinary(node, js);
        case NodeKind::choice:
            return js.kind == JsKind::call && js.childCount == node.childCount + 1 &&
                   expression_.child(js, 0).kind == JsKind::name &&
                   expression_.text(expression_.child(js, 0)) == u"IIF" &&
                   sameArguments(node.firstChild, js, 1);
        case NodeKind::call:
            return sameCall(node, js);
        case NodeKind::untranslatable:
            return sameObject(node, js);
        default:
            return false;
    }
}

bool Comparison::sameText(NodeIndex index, kx::Node const& js) {
    if (js.kind != JsKind::string) return false;
    if (expression_.text(js) == textValue(source_, tree_.nodes[index])) return true;
    changedTexts_.push_back(index);
    return false;
}

/// A name as it is written, or one with points as members.
bool Comparison::sameName(Node const& node, kx::Node const& js) {
    std::u16string_view name = written(node.place);
    if (!node.hasPoint || node.hasArrow) {
        return js.kind == JsKind::name && expression_.text(js) == name;
    }
    kx::Node const* part = &js;
    while (part->kind == JsKind::member) {
        std::size_t const point = name.rfind(u'.');
        if (point == std::u16string_view::npos) return false;
        if (expression_.text(*part) != withoutLeadingSpace(name.substr(point + 1))) return false;
        name = withoutTrailingSpace(name.substr(0, point));
        part = &expression_.child(*part, 0);
    }
    return part->kind == JsKind::name && expression_.text(*part) == name;
}

bool Comparison::isCallOf(kx::Node const& js, std::u16string_view object,
                          std::u16string_view name) const {
    if (js.kind != JsKind::call) return false;
    kx::Node const& callee = expression_.child(js, 0);
    return callee.kind == JsKind::member && expression_.text(callee) == name &&
           expression_.child(callee, 0).kind == JsKind::name &&
           expression_.text(expression_.child(callee, 0)) == object;
}

/// Of logical values, (!a)==b and !(a==b) are the same.
bool Comparison::sameNegation(Node const& node, kx::Node const& js) {
    auto const isNot = [](kx::Node const& each) {
        return each.kind == JsKind::unary && each.operation == Operation::logicalNot;
    };
    if (isNot(js)) return same(node.firstChild, expression_.child(js, 0));
    Node const& compared = tree_.child(node, 0);
    bool const isEquality =
        compared.kind == NodeKind::binary &&
        (compared.op == Operator::identical || compared.op == Operator::unequal) &&
        js.kind == JsKind::binary && js.operation == operationOf(compared.op);
    if (!isEquality || !isNot(expression_.child(js, 0))) return false;
    NodeIndex const left = compared.firstChild;
    NodeIndex const right = tree_.nodes[left].nextSibling;
    return tree_.nodes[left].valueKind == Kind::logical &&
           tree_.nodes[right].valueKind == Kind::logical &&
           same(left, expression_.child(expression_.child(js, 0), 0)) &&
           same(right, expression_.child(js, 1));
}

bool Comparison::sameBinary(Node const& node, kx::Node const& js) {
    if (node.op == Operator::power) {
        // Where a rule has missed it, "**" is a power in JavaScript too.
        if (js.kind == JsKind::binary && js.operation == Operation::power) {
            return sameArguments(node.firstChild, js, 0);
        }
        return isCallOf(js, u"Math", u"pow") && js.childCount == 3 &&
               sameArguments(node.firstChild, js, 1);
    }
    Operation const operation = operationOf(node.op);
    return operation != Operation::none && js.kind == JsKind::binary && js.operation == operation &&
           sameArguments(node.firstChild, js, 0);
}

bool Comparison::sameArguments(NodeIndex first, kx::Node const& js, std::size_t from) {
    for (std::size_t i = from; i < js.childCount; ++i) {
        if (first == kNoNode || !same(first, expression_.child(js, i))) return false;
        first = tree_.nodes[first].nextSibling;
    }
    return first == kNoNode;
}

bool Comparison::sameCall(Node const& node, kx::Node const& js) {
    CallTemplate const& call = callTemplate(written(node.sign), node);
    if (!call.expression || call.form == CallTemplate::Form::broken) return false;
    std::vector<NodeIndex> arguments;
    for (NodeIndex at = node.firstChild; at != kNoNode; at = tree_.nodes[at].nextSibling) {
        arguments.push_back(at);
    }
    return matches(*call.expression, call.expression->root(), js, arguments);
}

bool Comparison::matches(Expression const& pattern, kx::Node const& part, kx::Node const& js,
                         std::vector<NodeIndex> const& arguments) {
    if (part.kind == JsKind::name) {
        int const which = placeholderOf(pattern.text(part));
        if (which >= 0 && static_cast<std::size_t>(which) < arguments.size()) {
            return same(arguments[static_cast<std::size_t>(which)], js);
        }
    }
    bool const isLike = part.kind == js.kind && part.operation == js.operation &&
                        part.childCount == js.childCount && part.number == js.number &&
                        pattern.text(part) == expression_.text(js);
    if (!isLike) return false;
    for (std::size_t i = 0; i < part.childCount; ++i) {
        if (!matches(pattern, pattern.child(part, i), expression_.child(js, i), arguments)) {
            return false;
        }
    }
    return true;
}

/// Members, methods and elements of arrays: the shape is compared.
bool Comparison::sameObject(Node const& node, kx::Node const& js) {
    std::u16string_view const sign = written(node.sign);
    if (sign == u"[") {
        return js.kind == JsKind::index && sameArguments(node.firstChild, js, 0);
    }
    if (sign == u".") {
        return js.kind == JsKind::member && node.firstChild != kNoNode &&
               same(node.firstChild, expression_.child(js, 0));
    }
    bool const isMethod = js.kind == JsKind::call && !sign.empty() && isNameStart(sign[0]) &&
                          expression_.child(js, 0).kind == JsKind::member;
    return isMethod && sameArguments(node.firstChild, js, 1);
}

}  // namespace kx::translate
