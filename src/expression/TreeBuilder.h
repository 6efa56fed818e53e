#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "expression/Parser.h"

namespace kx {

/// Builds trees one after the other, with memory that stays. Complete nodes are values until they
/// become the children of another.
class TreeBuilder {
  public:
    /// A complete node, and its place with the parentheses around it.
    struct Value {
        std::uint32_t node;
        Place place;
    };

    /// Begins the tree of a source so long.
    void begin(std::size_t sourceLength) {
        tree_.nodes_.clear();
        tree_.children_.clear();
        tree_.texts_.clear();
        values_.clear();
        // Enough for most formulas: growing would allocate again.
        tree_.nodes_.reserve(kUsualNodes);
        tree_.children_.reserve(kUsualNodes);
        tree_.texts_.reserve(sourceLength);
        values_.reserve(kUsualNodes);
    }

    Expression& tree() { return tree_; }
    Expression const& tree() const { return tree_; }
    std::u16string& texts() { return tree_.texts_; }

    /// Precondition of what is about the last value: there is one.
    /// @{
    std::size_t valueCount() const { return values_.size(); }
    /// Forgets all values but the first ones.
    void keepValues(std::size_t count) { values_.resize(count); }
    Node const& lastNode() const { return tree_.nodes_[values_.back().node]; }
    std::uint32_t end() const { return values_.back().place.end; }
    /// Where the last `count` values begin.
    std::uint32_t startOf(std::size_t count) const {
        return values_[values_.size() - count].place.start;
    }
    void parenthesize(Place place) {
        tree_.nodes_[values_.back().node].isParenthesized = true;
        values_.back().place = place;
    }
    /// @}

    /// A node that add() completes. Written where it stays: to copy a whole node that was written
    /// in parts just before, the processor waits until they are all in the cache.
    Node& newNode(NodeKind kind) {
        Node& node = tree_.nodes_.emplace_back();
        node.kind = kind;
        node.textStart = textEnd();
        return node;
    }

    Node& newNode(NodeKind kind, std::u16string_view text) {
        Node& node = newNode(kind);
        node.textLength = static_cast<std::uint32_t>(text.size());
        tree_.texts_ += text;
        return node;
    }

    std::uint32_t textEnd() const { return static_cast<std::uint32_t>(tree_.texts_.size()); }

    /// Puts the new node over the last values, which become its children. Says why where it may not
    /// stand there.
    std::optional<Refusal::Reason> add(std::size_t childCount, Place place) {
        Node& node = tree_.nodes_.back();
        node.place = place;
        node.firstChild = static_cast<std::uint32_t>(tree_.children_.size());
        node.childCount = static_cast<std::uint32_t>(childCount);
        std::size_t const first = values_.size() - childCount;
        for (std::size_t i = first; i < values_.size(); ++i) {
            Node const& child = tree_.nodes_[values_[i].node];
            if (!mayStandBelow(child, node)) return Refusal::Reason::syntaxError;
            node.height = std::max<std::uint16_t>(node.height, child.height + 1);
            tree_.children_.push_back(values_[i].node);
        }
        if (node.height > Expression::kMaxHeight) return Refusal::Reason::tooComplex;
        values_.resize(first);
        values_.push_back({static_cast<std::uint32_t>(tree_.nodes_.size() - 1), place});
        return std::nullopt;
    }

  private:
    static constexpr std::size_t kUsualNodes = 16;

    /// JavaScript wants parentheses where "??" meets "&&" or "||".
    static bool mayStandBelow(Node const& child, Node const& node) {
        auto const isAndOr = [](Operation operation) {
            return operation == Operation::logicalAnd || operation == Operation::logicalOr;
        };
        if (child.isParenthesized || node.kind != NodeKind::binary) return true;
        return !(node.operation == Operation::coalesce && isAndOr(child.operation)) &&
               !(isAndOr(node.operation) && child.operation == Operation::coalesce);
    }

    Expression tree_;
    std::vector<Value> values_;
};

}  // namespace kx
