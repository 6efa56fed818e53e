// What is not on a list here is refused: a mistake then costs time and never a result. Computed
// members are refused, because 'x'['constructor'] reaches everything.
#include "columns/PureExpression.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "expression/Parser.h"
#include "native/Effects.h"

namespace kx {

namespace {

using namespace std::string_view_literals;

/// Functions whose bodies call no member of anything.
constexpr std::array kWithoutMembers = {
    u"BETWEEN"sv, u"BUMP"sv,     u"Boolean"sv, u"COND"sv,       u"EVEN"sv,     u"IIF"sv,
    u"INLIST"sv,  u"MAX"sv,      u"MIN"sv,     u"Number"sv,     u"SIGN"sv,     u"SWITCH"sv,
    u"String"sv,  u"isFinite"sv, u"isNaN"sv,   u"parseFloat"sv, u"parseInt"sv,
};

bool isPure(Expression const& expression, Node const& node) {
    if (node.kind == NodeKind::member) return isHarmlessMember(expression.text(node));
    return node.kind != NodeKind::assignment && node.kind != NodeKind::arrow &&
           node.kind != NodeKind::index;
}

void addName(std::vector<PureExpression::Name>& names, std::u16string_view text, bool isCalled) {
    auto const known =
        std::find_if(names.begin(), names.end(),
                     [text](PureExpression::Name const& name) { return name.text == text; });
    if (known == names.end()) {
        names.push_back({std::u16string(text), isCalled});
    } else {
        known->isCalled = known->isCalled && isCalled;
    }
}

}  // namespace

std::optional<PureExpression> pureExpression(std::u16string_view source) {
    auto const parsed = parseExpression(source);
    auto const* const expression = std::get_if<Expression>(&parsed);
    if (expression == nullptr) return std::nullopt;
    auto const nodes = expression->nodes();
    std::vector<bool> isCallee(nodes.size(), false);
    PureExpression pure;
    for (Node const& node : nodes) {
        if (!isPure(*expression, node)) return std::nullopt;
        if (node.kind == NodeKind::member && expression->text(node) != u"length") {
            pure.usesMembers = true;
        }
        if (node.kind != NodeKind::call) continue;
        Node const& callee = expression->child(node, 0);
        isCallee[expression->childNumber(node, 0)] = true;
        bool const isKnown = callee.kind == NodeKind::name &&
                             std::find(kWithoutMembers.begin(), kWithoutMembers.end(),
                                       expression->text(callee)) != kWithoutMembers.end();
        pure.usesMembers = pure.usesMembers || !isKnown;
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].kind != NodeKind::name) continue;
        addName(pure.names, expression->text(nodes[i]), isCallee[i]);
    }
    Place const place = expression->root().place;
    pure.text = source.substr(place.start, place.end - place.start);
    return pure;
}

}  // namespace kx
