// What is evaluated without V8 has no effects, except texts that IIF and COND evaluate. Of the
// rest, what is not on a list here may have effects: a mistake then costs time and never a result.
#include "native/Effects.h"

#include <algorithm>
#include <array>

#include "native/translated/Functions.h"

namespace kx {

namespace {

using namespace std::string_view_literals;

/// Members without effects, beside those that native/Functions.h knows.
constexpr std::array kOtherMembers = {
    u"acos"sv,        u"asin"sv,     u"atan"sv,   u"atan2"sv,         u"cbrt"sv,
    u"concat"sv,      u"cos"sv,      u"cosh"sv,   u"exp"sv,           u"fromCharCode"sv,
    u"hypot"sv,       u"left"sv,     u"length"sv, u"log"sv,           u"log10"sv,
    u"log2"sv,        u"ltrim"sv,    u"padEnd"sv, u"padStart"sv,      u"pow"sv,
    u"repeat"sv,      u"replace"sv,  u"right"sv,  u"rtrim"sv,         u"sin"sv,
    u"sinh"sv,        u"tan"sv,      u"tanh"sv,   u"toExponential"sv, u"toFixed"sv,
    u"toPrecision"sv, u"toString"sv, u"trim"sv,
};

/// Global functions without effects, beside those that native/Functions.h knows.
constexpr std::array kOtherFunctions = {
    u"ANTILOG"sv, u"EXP"sv,      u"LOG"sv,        u"LOG10"sv,
    u"POWER"sv,   u"isFinite"sv, u"parseFloat"sv, u"parseInt"sv,
};

/// Global functions that never give a text.
constexpr std::array kWithoutText = {
    u"ASCII"sv,    u"AT"sv,       u"ATC"sv,     u"BETWEEN"sv,  u"Boolean"sv, u"EVEN"sv,
    u"INLIST"sv,   u"IOCCURS"sv,  u"ISALNUM"sv, u"ISALPHA"sv,  u"ISASCII"sv, u"ISCNTRL"sv,
    u"ISDIGIT"sv,  u"ISGRAPH"sv,  u"ISLOWER"sv, u"ISPRINT"sv,  u"ISPUNCT"sv, u"ISSPACE"sv,
    u"ISUPPER"sv,  u"ISXDIGIT"sv, u"LEN"sv,     u"LOCATE"sv,   u"Number"sv,  u"OCCURS"sv,
    u"ODD"sv,      u"RAT"sv,      u"RATC"sv,    u"isFinite"sv, u"isNaN"sv,   u"parseFloat"sv,
    u"parseInt"sv,
};

static_assert(std::is_sorted(kOtherMembers.begin(), kOtherMembers.end()));
static_assert(std::is_sorted(kOtherFunctions.begin(), kOtherFunctions.end()));
static_assert(std::is_sorted(kWithoutText.begin(), kWithoutText.end()));

template <class List>
bool isIn(List const& list, std::u16string_view name) {
    return std::binary_search(list.begin(), list.end(), name);
}

bool isMath(Expression const& expression, Node const& node) {
    return node.kind == NodeKind::name && expression.text(node) == u"Math";
}

bool isHarmlessObject(Expression const& expression, Node const& node) {
    if (node.kind != NodeKind::name) return false;
    std::u16string_view const name = expression.text(node);
    return name == u"Math" || name == u"Number" || name == u"String" || name == u"kx";
}

/// "kx", "kx.exact" and calls of "kx.of": the run-time part of translated formulas, or nothing.
bool isRunTimePart(Expression const& expression, Node const& node) {
    if (node.kind == NodeKind::name) return expression.text(node) == u"kx";
    Node const& member = node.kind == NodeKind::call ? expression.child(node, 0) : node;
    if (member.kind != NodeKind::member) return false;
    bool const isKnown = expression.text(member) == (&member == &node ? u"exact" : u"of");
    Node const& object = expression.child(member, 0);
    return isKnown && object.kind == NodeKind::name && expression.text(object) == u"kx";
}

/// IIF and COND evaluate their conditions where those are texts.
bool evaluatesNoText(Expression const& expression, Node const& call) {
    bool const isIif = expression.text(expression.child(call, 0)) == u"IIF";
    std::size_t const last = isIif ? 2 : call.childCount;
    for (std::size_t i = 1; i < std::min<std::size_t>(last, call.childCount); i += 2) {
        if (!isNeverText(expression, expression.child(call, i))) return false;
    }
    return true;
}

bool isHarmlessMemberOf(Expression const& expression, Node const& member) {
    std::u16string_view const name = expression.text(member);
    return isHarmlessMember(name) || (isRunTimePart(expression, expression.child(member, 0)) &&
                                      (isHarmlessRunTimeFunction(name) || name == u"exact"));
}

bool isHarmlessCall(Expression const& expression, Node const& call) {
    Node const& callee = expression.child(call, 0);
    std::u16string_view const name = expression.text(callee);
    if (callee.kind == NodeKind::member) return isHarmlessMemberOf(expression, callee);
    if (callee.kind != NodeKind::name) return false;
    if (name == u"IIF" || name == u"COND") return evaluatesNoText(expression, call);
    return findGlobalFunction(name) != nullptr || isIn(kOtherFunctions, name);
}

bool isHarmless(Expression const& expression, Node const& node) {
    switch (node.kind) {
        case NodeKind::assignment:
        case NodeKind::arrow:
        case NodeKind::index:
            return false;
        case NodeKind::member:
            return isHarmlessMemberOf(expression, node);
        case NodeKind::call:
            return isHarmlessCall(expression, node);
        default:
            return true;
    }
}

}  // namespace

bool isHarmlessMember(std::u16string_view name) {
    return findTextMember(name) != nullptr || findMathFunction(name) != nullptr ||
           findMathConstant(name) != nullptr || isIn(kOtherMembers, name);
}

bool isNeverText(Expression const& expression, Node const& node) {
    auto const child = [&](std::size_t which) -> Node const& {
        return expression.child(node, which);
    };
    switch (node.kind) {
        case NodeKind::number:
        case NodeKind::boolean:
        case NodeKind::null:
            return true;
        case NodeKind::unary:
            return node.operation != Operation::typeOf;
        case NodeKind::conditional:
            return isNeverText(expression, child(1)) && isNeverText(expression, child(2));
        case NodeKind::call:
            if (child(0).kind == NodeKind::member) {
                return isMath(expression, expression.child(child(0), 0));
            }
            return child(0).kind == NodeKind::name && isIn(kWithoutText, expression.text(child(0)));
        case NodeKind::binary:
            break;
        default:
            return false;
    }
    switch (node.operation) {
        case Operation::comma:
            return isNeverText(expression, child(1));
        case Operation::add:
        case Operation::logicalAnd:
        case Operation::logicalOr:
        case Operation::coalesce:
            return isNeverText(expression, child(0)) && isNeverText(expression, child(1));
        default:
            return true;
    }
}

std::optional<std::vector<std::u16string_view>> namesReadWithoutEffects(
    Expression const& expression) {
    auto const nodes = expression.nodes();
    std::vector<bool> isRead(nodes.size(), true);
    for (Node const& node : nodes) {
        if (!isHarmless(expression, node)) return std::nullopt;
        if (node.kind == NodeKind::call) isRead[expression.childNumber(node, 0)] = false;
        if (node.kind != NodeKind::member) continue;
        std::uint32_t const object = expression.childNumber(node, 0);
        if (isHarmlessObject(expression, nodes[object])) isRead[object] = false;
    }
    std::vector<std::u16string_view> names;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].kind != NodeKind::name || !isRead[i]) continue;
        names.push_back(expression.text(nodes[i]));
    }
    return names;
}

}  // namespace kx
