#include "translate/Kinds.h"

#include <algorithm>
#include <cmath>

#include "translate/Functions.h"

namespace kx::translate {
namespace {

constexpr std::int16_t kMostScale = 100;

Kind sumKind(Operator op, Kind a, Kind b) {
    if (a == Kind::text || b == Kind::text) return Kind::text;
    if (a == Kind::number && b == Kind::number) return Kind::number;
    if (a == Kind::date && b == Kind::date && op == Operator::subtract) return Kind::number;
    bool const isShifted = (a == Kind::date && b == Kind::number) ||
                           (a == Kind::number && b == Kind::date && op == Operator::add);
    return isShifted ? Kind::date : Kind::unknown;
}

Kind binaryKind(Operator op, Kind a, Kind b) {
    switch (op) {
        case Operator::add:
        case Operator::subtract:
            return sumKind(op, a, b);
        case Operator::multiply:
        case Operator::divide:
        case Operator::remainder:
        case Operator::power:
            return Kind::number;
        default:
            return Kind::logical;
    }
}

bool isWholeLiteral(Node const& node) { return node.kind == NodeKind::number && node.scale == 0; }

std::int16_t binaryScale(Operator op, Node const& a, Node const& b) {
    bool const areKnown = a.scale != kNoScale && b.scale != kNoScale;
    switch (op) {
        case Operator::add:
        case Operator::subtract:
            if (a.valueKind == Kind::date && b.valueKind == Kind::date) return 0;
            return areKnown ? std::max(a.scale, b.scale) : kNoScale;
        case Operator::multiply:
            if (!areKnown) return kNoScale;
            return static_cast<std::int16_t>(std::min(a.scale + b.scale, int{kMostScale}));
        case Operator::divide: {
            bool const isWhole = isWholeLiteral(a) && isWholeLiteral(b) && b.number != 0 &&
                                 std::fmod(a.number, b.number) == 0;
            return isWhole ? 0 : 2;
        }
        case Operator::remainder:
            if (!areKnown) return kNoScale;
            return a.scale == 0 && b.scale == 0 ? 0 : 2;
        case Operator::power:
            return 2;
        default:
            return kNoScale;
    }
}

std::int16_t roundingScale(Tree const& tree, Node const& node) {
    if (node.childCount < 2) return kNoScale;
    Node const* places = &tree.child(node, 1);
    bool const isNegative = places->kind == NodeKind::sign && places->isNegative;
    if (isNegative) places = &tree.child(*places, 0);
    if (places->kind != NodeKind::number) return kNoScale;
    double const count = isNegative ? 0 : std::trunc(places->number);
    return static_cast<std::int16_t>(std::min<double>(count, kMostScale));
}

std::int16_t functionScale(Tree const& tree, Node const& node) {
    switch (node.function->scale) {
        case ScaleRule::zero:
            return 0;
        case ScaleRule::two:
            return 2;
        case ScaleRule::ofArgument:
            return node.childCount > 0 ? tree.child(node, 0).scale : kNoScale;
        case ScaleRule::ofRounding:
            return roundingScale(tree, node);
        default:
            return kNoScale;
    }
}

}  // namespace

void inferKind(Tree const& tree, Node& node) {
    switch (node.kind) {
        case NodeKind::number:
            node.valueKind = Kind::number;
            break;
        case NodeKind::text:
        case NodeKind::type:
            node.valueKind = Kind::text;
            break;
        case NodeKind::date:
            node.valueKind = Kind::date;
            break;
        case NodeKind::logical:
        case NodeKind::negation:
            node.valueKind = Kind::logical;
            break;
        case NodeKind::nil:
            node.valueKind = Kind::nil;
            break;
        case NodeKind::sign:
            node.valueKind = Kind::number;
            node.scale = tree.child(node, 0).scale;
            break;
        case NodeKind::binary: {
            Node const& left = tree.child(node, 0);
            Node const& right = tree.child(node, 1);
            node.valueKind = binaryKind(node.op, left.valueKind, right.valueKind);
            node.scale = binaryScale(node.op, left, right);
            break;
        }
        case NodeKind::choice:
            if (node.childCount == 3 &&
                tree.child(node, 1).valueKind == tree.child(node, 2).valueKind) {
                node.valueKind = tree.child(node, 1).valueKind;
            }
            break;
        case NodeKind::call:
            if (node.function == nullptr) break;
            node.valueKind = node.function->result;
            node.scale = functionScale(tree, node);
            break;
        default:
            break;
    }
}

std::u16string_view kindName(Kind kind) {
    switch (kind) {
        case Kind::text:
            return u"text";
        case Kind::number:
            return u"number";
        case Kind::logical:
            return u"logical";
        case Kind::date:
            return u"date";
        case Kind::nil:
            return u"nil";
        default:
            return u"unknown";
    }
}

}  // namespace kx::translate
