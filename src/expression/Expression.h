#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

enum class NodeKind : std::uint8_t {
    number,       // number(), and text() as it is written
    string,       // text(): the value, escapes resolved
    boolean,      // number() is 0 or 1
    null,         //
    name,         // text()
    unary,        // operation; one child
    binary,       // operation; two children. "&&", "||", "??" and "," are binary too
    conditional,  // condition, first choice, second choice
    member,       // object; text() is the name behind the point
    index,        // object, key between brackets
    call,         // callee, arguments
    assignment,   // target, value. operation is none for "=", and add for "+="
    arrow,        // parameter, which is a name; body
    opaque,       // what only scripts may hold: in no tree outside of the parser
};

enum class Operation : std::uint8_t {
    none,
    // Unary.
    plus,
    minus,
    logicalNot,
    bitNot,
    typeOf,
    voidOf,
    // Binary.
    add,
    subtract,
    multiply,
    divide,
    remainder,
    power,
    shiftLeft,
    shiftRight,
    shiftRightUnsigned,
    bitAnd,
    bitOr,
    bitXor,
    less,
    greater,
    lessOrEqual,
    greaterOrEqual,
    equal,
    notEqual,
    strictlyEqual,
    strictlyUnequal,
    logicalAnd,
    logicalOr,
    coalesce,
    comma,
};

/// A place in the source: from `start` up to, but not including, `end`, in code units.
struct Place {
    std::uint32_t start = 0;
    std::uint32_t end = 0;
};

/// One node of a tree. What it holds beside this, its Expression knows.
struct Node {
    NodeKind kind = NodeKind::null;
    Operation operation = Operation::none;
    bool isParenthesized = false;  // its place is the one without the parentheses
    std::uint16_t height = 1;      // of the tree below it, itself included
    std::uint32_t childCount = 0;  // in a call the callee is one
    std::uint32_t firstChild = 0;  // in the expression's list of children
    std::uint32_t textStart = 0;   // in the expression's list of texts
    std::uint32_t textLength = 0;
    Place place = {};
    double number = 0;
};

/// A JavaScript expression as a tree, independent of the source that it was made from. Every node
/// stands behind its children, so that a loop over nodes() meets the parts before the whole.
class Expression {
  public:
    /// Trees are at most so high: functions that call themselves for each child are safe.
    static constexpr std::uint16_t kMaxHeight = 200;

    Node const& root() const { return nodes_.back(); }
    std::span<Node const> nodes() const { return nodes_; }

    /// The number of a child's node, from 0 on.
    std::uint32_t childNumber(Node const& node, std::size_t which) const {
        return children_[node.firstChild + which];
    }
    Node const& child(Node const& node, std::size_t which) const {
        return nodes_[childNumber(node, which)];
    }

    /// A name, a string's value, or a number as it is written.
    std::u16string_view text(Node const& node) const {
        return std::u16string_view(texts_).substr(node.textStart, node.textLength);
    }

  private:
    friend class TreeBuilder;

    std::vector<Node> nodes_;
    std::vector<std::uint32_t> children_;
    std::u16string texts_;
};

}  // namespace kx
