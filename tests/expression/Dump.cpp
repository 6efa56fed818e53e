#include "Dump.h"

#include <array>

namespace {

using kx::Expression;
using kx::Node;
using kx::NodeKind;

constexpr std::array<std::u16string_view, 32> kSigns = {
    u"",   u"+",  u"-",  u"!",   u"~",   u"typeof", u"void", u"+",    u"-", u"*", u"/",
    u"%",  u"**", u"<<", u">>",  u">>>", u"&",      u"|",    u"^",    u"<", u">", u"<=",
    u">=", u"==", u"!=", u"===", u"!==", u"&&",     u"||",   u"\?\?", u",",
};

std::u16string signOf(Node const& node) {
    return std::u16string(kSigns.at(static_cast<std::size_t>(node.operation)));
}

std::u16string quoted(std::u16string_view text) {
    constexpr std::u16string_view kDigits = u"0123456789abcdef";
    std::u16string result = u"'";
    for (char16_t const unit : text) {
        if (unit >= u' ' && unit < 127 && unit != u'\'' && unit != u'\\') {
            result += unit;
            continue;
        }
        result += u"\\u";
        for (int shift = 12; shift >= 0; shift -= 4) result += kDigits[(unit >> shift) & 15];
    }
    return result + u"'";
}

std::u16string leaf(Expression const& expression, Node const& node) {
    switch (node.kind) {
        case NodeKind::string:
            return quoted(expression.text(node));
        case NodeKind::boolean:
            return node.number == 1 ? u"true" : u"false";
        case NodeKind::null:
            return u"null";
        default:
            return std::u16string(expression.text(node));
    }
}

std::u16string headOf(Expression const& expression, Node const& node) {
    switch (node.kind) {
        case NodeKind::unary:
        case NodeKind::binary:
            return signOf(node);
        case NodeKind::conditional:
            return u"?:";
        case NodeKind::member:
            return u"." + std::u16string(expression.text(node));
        case NodeKind::index:
            return u"[]";
        case NodeKind::call:
            return u"call";
        case NodeKind::assignment:
            return signOf(node) + u"=";
        default:
            return u"=>";
    }
}

std::u16string dump(Expression const& expression, Node const& node) {
    if (node.childCount == 0) return leaf(expression, node);
    std::u16string result = u"(" + headOf(expression, node);
    for (std::size_t i = 0; i < node.childCount; ++i) {
        result += u" " + dump(expression, expression.child(node, i));
    }
    return result + u")";
}

std::u16string script(Expression const& expression, Node const& node) {
    auto const child = [&](std::size_t which) {
        return script(expression, expression.child(node, which));
    };
    switch (node.kind) {
        case NodeKind::unary:
            return u"(" + signOf(node) + u" " + child(0) + u")";
        case NodeKind::binary:
            return u"(" + child(0) + u" " + signOf(node) + u" " + child(1) + u")";
        case NodeKind::conditional:
            return u"(" + child(0) + u"?" + child(1) + u":" + child(2) + u")";
        case NodeKind::member:
            return u"(" + child(0) + u" ." + std::u16string(expression.text(node)) + u")";
        case NodeKind::index:
            return u"(" + child(0) + u"[" + child(1) + u"])";
        case NodeKind::assignment:
            return u"(" + child(0) + signOf(node) + u"=" + child(1) + u")";
        case NodeKind::arrow:
            return u"(" + child(0) + u"=>" + child(1) + u")";
        case NodeKind::call: {
            std::u16string list;
            for (std::size_t i = 1; i < node.childCount; ++i) {
                list += (i == 1 ? u"" : u",") + child(i);
            }
            return u"(" + child(0) + u"(" + list + u"))";
        }
        default:
            return leaf(expression, node);
    }
}

}  // namespace

std::u16string dump(Expression const& expression) { return dump(expression, expression.root()); }

std::u16string asJavaScript(Expression const& expression) {
    return script(expression, expression.root());
}
