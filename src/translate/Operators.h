#pragma once

#include <array>
#include <string_view>

#include "translate/Tree.h"

namespace kx::translate {

/// How tightly operators bind; calls, members and signs bind more tightly than all.
enum class Binding : std::uint8_t {
    none,
    assignment,
    logicalOr,
    logicalXor,
    logicalAnd,
    negation,
    equality,
    comparison,
    sum,
    product,
    power,
};

struct OperatorSign {
    std::u16string_view text;
    Operator op;
};

/// What stands between operands, longest first among those that begin with the same unit. "/=" is
/// "unequal", as the textual conversion reads it. "++" and "--" are not here: behind an operand
/// they may be two operators or one.
inline constexpr auto kOperatorSigns = std::to_array<OperatorSign>({
    {u"+=", Operator::assign},         {u"+", Operator::add},
    {u"-=", Operator::assign},         {u"-", Operator::subtract},
    {u"**", Operator::power},          {u"*=", Operator::assign},
    {u"*", Operator::multiply},        {u"/=", Operator::unequal},
    {u"/", Operator::divide},          {u"\\", Operator::divide},
    {u"%=", Operator::assign},         {u"%", Operator::remainder},
    {u"^=", Operator::assign},         {u"^", Operator::power},
    {u"==", Operator::identical},      {u"=<", Operator::lessOrEqual},
    {u"=>", Operator::greaterOrEqual}, {u"=", Operator::equal},
    {u"!=", Operator::unequal},        {u"<>", Operator::unequal},
    {u"<=", Operator::lessOrEqual},    {u"<", Operator::less},
    {u">=", Operator::greaterOrEqual}, {u">", Operator::greater},
    {u"#", Operator::unequal},         {u"$", Operator::contained},
    {u":=", Operator::assign},
});

struct OperatorTraits {
    Binding binding;
    std::u16string_view name;      // in error texts
    std::u16string_view function;  // of the run-time part
};

/// In the order of Operator. All are left-associative, the power too.
inline constexpr auto kOperatorTraits = std::to_array<OperatorTraits>({
    {Binding::none, u"", u""},
    {Binding::logicalOr, u"OR", u""},
    {Binding::logicalXor, u"XOR", u"xor"},
    {Binding::logicalAnd, u"AND", u""},
    {Binding::equality, u"=", u"eq"},
    {Binding::equality, u"==", u"same"},
    {Binding::equality, u"<>", u"ne"},
    {Binding::comparison, u"<", u"cmp"},
    {Binding::comparison, u">", u"cmp"},
    {Binding::comparison, u"<=", u"cmp"},
    {Binding::comparison, u">=", u"cmp"},
    {Binding::comparison, u"$", u"within"},
    {Binding::sum, u"+", u"add"},
    {Binding::sum, u"-", u"sub"},
    {Binding::product, u"*", u"mul"},
    {Binding::product, u"/", u"div"},
    {Binding::product, u"%", u"rem"},
    {Binding::power, u"^", u"pow"},
    {Binding::assignment, u":=", u""},
});

constexpr OperatorTraits const& traits(Operator op) {
    return kOperatorTraits[static_cast<std::size_t>(op)];
}

}  // namespace kx::translate
