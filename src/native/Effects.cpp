// What is not on a list here may have effects: a mistake then costs time and never a result.
#include "native/Effects.h"

#include <algorithm>
#include <array>

#include "native/translated/Functions.h"

namespace kx {

namespace {

using namespace std::string_view_literals;

constexpr std::array kMembers = {
    u"E"sv,        u"LN10"sv,        u"LN2"sv,         u"LOG10E"sv,       u"LOG2E"sv,
    u"PI"sv,       u"SQRT1_2"sv,     u"SQRT2"sv,       u"abs"sv,          u"acos"sv,
    u"asin"sv,     u"atan"sv,        u"atan2"sv,       u"cbrt"sv,         u"ceil"sv,
    u"charAt"sv,   u"charCodeAt"sv,  u"concat"sv,      u"cos"sv,          u"cosh"sv,
    u"endsWith"sv, u"exp"sv,         u"floor"sv,       u"fromCharCode"sv, u"hypot"sv,
    u"includes"sv, u"indexOf"sv,     u"lastIndexOf"sv, u"left"sv,         u"length"sv,
    u"log"sv,      u"log10"sv,       u"log2"sv,        u"ltrim"sv,        u"max"sv,
    u"min"sv,      u"padEnd"sv,      u"padStart"sv,    u"pow"sv,          u"repeat"sv,
    u"replace"sv,  u"right"sv,       u"round"sv,       u"rtrim"sv,        u"sign"sv,
    u"sin"sv,      u"sinh"sv,        u"slice"sv,       u"sqrt"sv,         u"startsWith"sv,
    u"substr"sv,   u"substring"sv,   u"tan"sv,         u"tanh"sv,         u"toExponential"sv,
    u"toFixed"sv,  u"toLowerCase"sv, u"toPrecision"sv, u"toString"sv,     u"toUpperCase"sv,
    u"trim"sv,     u"trunc"sv,
};

/// Global functions without effects: of the catalogues, and of JavaScript. Not IIF and COND, which
/// evaluate texts.
constexpr std::array kFunctions = {
    u"ALLTRIM"sv,  u"ANTILOG"sv,   u"ASCII"sv,   u"AT"sv,       u"ATC"sv,     u"BETWEEN"sv,
    u"BUMP"sv,     u"Boolean"sv,   u"CHAR"sv,    u"CHRTRAN"sv,  u"CONCAT"sv,  u"DEGREES"sv,
    u"EVEN"sv,     u"EXP"sv,       u"FRAC"sv,    u"INLIST"sv,   u"INSERT"sv,  u"IOCCURS"sv,
    u"ISALNUM"sv,  u"ISALPHA"sv,   u"ISASCII"sv, u"ISCNTRL"sv,  u"ISDIGIT"sv, u"ISGRAPH"sv,
    u"ISLOWER"sv,  u"ISPRINT"sv,   u"ISPUNCT"sv, u"ISSPACE"sv,  u"ISUPPER"sv, u"ISXDIGIT"sv,
    u"LEFT"sv,     u"LEN"sv,       u"LOCATE"sv,  u"LOG"sv,      u"LOG10"sv,   u"LOWERCASE"sv,
    u"LTRIM"sv,    u"MAX"sv,       u"MIN"sv,     u"Number"sv,   u"OCCURS"sv,  u"ODD"sv,
    u"POWER"sv,    u"RADIANS"sv,   u"RAT"sv,     u"RATC"sv,     u"REPEAT"sv,  u"REPLACE"sv,
    u"RIGHT"sv,    u"ROUND"sv,     u"RPAD"sv,    u"RTRIM"sv,    u"SIGN"sv,    u"SPACE"sv,
    u"SQRT"sv,     u"STR"sv,       u"STRZ"sv,    u"SUBSTR"sv,   u"SWITCH"sv,  u"String"sv,
    u"TRUNCATE"sv, u"UPPERCASE"sv, u"VAL"sv,     u"isFinite"sv, u"isNaN"sv,   u"parseFloat"sv,
    u"parseInt"sv,
};

/// Those of them that never give a text.
constexpr std::array kWithoutText = {
    u"ASCII"sv,    u"AT"sv,       u"ATC"sv,     u"BETWEEN"sv,  u"Boolean"sv, u"EVEN"sv,
    u"INLIST"sv,   u"IOCCURS"sv,  u"ISALNUM"sv, u"ISALPHA"sv,  u"ISASCII"sv, u"ISCNTRL"sv,
    u"ISDIGIT"sv,  u"ISGRAPH"sv,  u"ISLOWER"sv, u"ISPRINT"sv,  u"ISPUNCT"sv, u"ISSPACE"sv,
    u"ISUPPER"sv,  u"ISXDIGIT"sv, u"LEN"sv,     u"LOCATE"sv,   u"Number"sv,  u"OCCURS"sv,
    u"ODD"sv,      u"RAT"sv,      u"RATC"sv,    u"isFinite"sv, u"isNaN"sv,   u"parseFloat"sv,
    u"parseInt"sv,
};

static_assert(std::is_sorted(kMembers.begin(), kMembers.end()));
static_assert(std::is_sorted(kFunctions.begin(), kFunctions.end()));
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
    return isIn(kFunctions, name);
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

bool isHarmlessMember(std::u16string_view name) { return isIn(kMembers, name); }

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
            if (child(0).kind == NodeKind::member)
                return isMath(expression, expression.child(child(0), 0));
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
        if (nodes[i].kind == NodeKind::name && isRead[i])
            names.push_back(expression.text(nodes[i]));
    }
    return names;
}

}  // namespace kx
