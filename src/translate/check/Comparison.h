#pragma once

#include <string_view>
#include <vector>

#include "expression/Expression.h"
#include "translate/Tree.h"

namespace kx::translate {

/// Whether a formula and the JavaScript that was made of it have the same shape and operators.
/// What functions mean is looked at elsewhere.
class Comparison {
  public:
    Comparison(Tree const& tree, std::u16string_view source, Expression const& expression)
        : tree_(tree), source_(source), expression_(expression) {}

    bool isSame();

    /// Texts that came out changed; only those that the comparison has met.
    std::vector<NodeIndex> const& changedTexts() const { return changedTexts_; }

  private:
    bool same(NodeIndex index, kx::Node const& js);
    bool sameText(NodeIndex index, kx::Node const& js);
    bool sameName(Node const& node, kx::Node const& js);
    bool sameNegation(Node const& node, kx::Node const& js);
    bool sameBinary(Node const& node, kx::Node const& js);
    bool sameCall(Node const& node, kx::Node const& js);
    bool sameArguments(NodeIndex first, kx::Node const& js, std::size_t from);
    bool sameObject(Node const& node, kx::Node const& js);
    bool matches(Expression const& pattern, kx::Node const& part, kx::Node const& js,
                 std::vector<NodeIndex> const& arguments);
    bool isCallOf(kx::Node const& js, std::u16string_view object, std::u16string_view name) const;
    std::u16string_view written(Place place) const {
        return source_.substr(place.start, place.end - place.start);
    }

    Tree const& tree_;
    std::u16string_view source_;
    Expression const& expression_;
    std::vector<NodeIndex> changedTexts_;
};

/// The value of a text literal.
std::u16string textValue(std::u16string_view source, Node const& text);

}  // namespace kx::translate
