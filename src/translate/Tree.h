#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kx::translate {

/// What is known of a value without running the formula.
enum class Kind : std::uint8_t { unknown, text, number, logical, date, nil };

/// A part of the formula, in code units from its start.
struct Place {
    std::uint32_t start = 0;
    std::uint32_t end = 0;
};

enum class NodeKind : std::uint8_t {
    number,
    text,
    date,
    logical,
    nil,
    name,
    negation,  // .NOT.
    sign,      // unary plus and minus
    binary,
    choice,          // IIF with two or three arguments
    call,            // of a function; ICASE too
    omitted,         // an argument that was left out
    type,            // TYPE of a text literal; its child is the expression in the text
    untranslatable,  // a construct without a translation; the children are what it contains
};

/// Operators by meaning. Their other spellings have the same.
enum class Operator : std::uint8_t {
    none,
    logicalOr,
    logicalXor,
    logicalAnd,
    equal,
    identical,
    unequal,
    less,
    greater,
    lessOrEqual,
    greaterOrEqual,
    contained,
    add,
    subtract,
    multiply,
    divide,
    remainder,
    power,
    assign,
};

/// What a call calls.
enum class Callee : std::uint8_t { unknown, language, installed, host, cases };

using NodeIndex = std::uint32_t;
inline constexpr NodeIndex kNoNode = 0xFFFFFFFF;
inline constexpr std::int16_t kNoScale = -1;

struct LanguageFunction;

struct Node {
    NodeKind kind = NodeKind::nil;
    Operator op = Operator::none;
    Callee callee = Callee::unknown;
    Kind valueKind = Kind::unknown;
    bool isParenthesized = false;
    bool isNegative = false;        // sign: minus. logical: .F.
    bool isEscaped = false;         // text: written as e"..."
    bool hasArrow = false;          // name: with "->"
    bool hasPoint = false;          // name: with "."
    std::int16_t scale = kNoScale;  // the decimals that STR shows without being told
    std::uint16_t height = 0;       // operators and calls below and including this node
    std::uint32_t childCount = 0;
    Place place;  // without parentheses around it
    Place sign;   // of the operator or the function's name. text: the content
    NodeIndex firstChild = kNoNode;
    NodeIndex nextSibling = kNoNode;
    std::uint32_t textStart = 0;  // name, call, untranslatable: in Tree::texts
    std::uint32_t textLength = 0;
    double number = 0;                           // number; date: its day
    LanguageFunction const* function = nullptr;  // call: where the language knows it
};

/// A formula as a tree. A node stands behind its children, the root last.
struct Tree {
    std::vector<Node> nodes;
    std::u16string texts;

    Node const& root() const { return nodes.back(); }
    std::u16string_view text(Node const& node) const {
        return std::u16string_view(texts).substr(node.textStart, node.textLength);
    }
    Node const& child(Node const& node, std::size_t which) const {
        NodeIndex index = node.firstChild;
        while (which-- > 0) index = nodes[index].nextSibling;
        return nodes[index];
    }
    void clear() {
        nodes.clear();
        texts.clear();
    }
};

}  // namespace kx::translate
