#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "expression/Expression.h"

namespace kx {

/// How tightly operators bind. Members, calls and unary operators bind more tightly than all.
enum class Binding : std::uint8_t {
    none,
    comma,
    assignment,
    conditional,
    logicalOr,  // and "??"
    logicalAnd,
    bitOr,
    bitXor,
    bitAnd,
    equality,
    comparison,
    shift,
    sum,
    product,
    power,
    unary,
};

/// What a punctuator is where an operator may stand, behind an operand.
enum class Role : std::uint8_t {
    binary,
    assignment,
    arrow,
    question,
    colon,
    comma,
    point,
    open,
    close,
    openIndex,
    closeIndex,
    end,  // ";"
    increment,
    templateText,
    unsupported,
};

struct Punctuator {
    std::u16string_view text;
    Role role;
    Operation operation = Operation::none;
    Binding binding = Binding::none;
};

/// Those that begin with the same unit stand together, the longest first.
inline constexpr std::array kPunctuators = {
    Punctuator{u"&&=", Role::assignment, Operation::logicalAnd},
    Punctuator{u"&&", Role::binary, Operation::logicalAnd, Binding::logicalAnd},
    Punctuator{u"&=", Role::assignment, Operation::bitAnd},
    Punctuator{u"&", Role::binary, Operation::bitAnd, Binding::bitAnd},
    Punctuator{u"||=", Role::assignment, Operation::logicalOr},
    Punctuator{u"||", Role::binary, Operation::logicalOr, Binding::logicalOr},
    Punctuator{u"|=", Role::assignment, Operation::bitOr},
    Punctuator{u"|", Role::binary, Operation::bitOr, Binding::bitOr},
    Punctuator{u"\?\?=", Role::assignment, Operation::coalesce},
    Punctuator{u"\?\?", Role::binary, Operation::coalesce, Binding::logicalOr},
    Punctuator{u"?.", Role::unsupported},
    Punctuator{u"?", Role::question},
    Punctuator{u"===", Role::binary, Operation::strictlyEqual, Binding::equality},
    Punctuator{u"==", Role::binary, Operation::equal, Binding::equality},
    Punctuator{u"=>", Role::arrow},
    Punctuator{u"=", Role::assignment},
    Punctuator{u"!==", Role::binary, Operation::strictlyUnequal, Binding::equality},
    Punctuator{u"!=", Role::binary, Operation::notEqual, Binding::equality},
    // A comment to the end of the line, in scripts.
    Punctuator{u"<!--", Role::unsupported},
    Punctuator{u"<<=", Role::assignment, Operation::shiftLeft},
    Punctuator{u"<<", Role::binary, Operation::shiftLeft, Binding::shift},
    Punctuator{u"<=", Role::binary, Operation::lessOrEqual, Binding::comparison},
    Punctuator{u"<", Role::binary, Operation::less, Binding::comparison},
    Punctuator{u">>>=", Role::assignment, Operation::shiftRightUnsigned},
    Punctuator{u">>>", Role::binary, Operation::shiftRightUnsigned, Binding::shift},
    Punctuator{u">>=", Role::assignment, Operation::shiftRight},
    Punctuator{u">>", Role::binary, Operation::shiftRight, Binding::shift},
    Punctuator{u">=", Role::binary, Operation::greaterOrEqual, Binding::comparison},
    Punctuator{u">", Role::binary, Operation::greater, Binding::comparison},
    Punctuator{u"++", Role::increment},
    Punctuator{u"+=", Role::assignment, Operation::add},
    Punctuator{u"+", Role::binary, Operation::add, Binding::sum},
    Punctuator{u"--", Role::increment},
    Punctuator{u"-=", Role::assignment, Operation::subtract},
    Punctuator{u"-", Role::binary, Operation::subtract, Binding::sum},
    Punctuator{u"**=", Role::assignment, Operation::power},
    Punctuator{u"**", Role::binary, Operation::power, Binding::power},
    Punctuator{u"*=", Role::assignment, Operation::multiply},
    Punctuator{u"*", Role::binary, Operation::multiply, Binding::product},
    Punctuator{u"/=", Role::assignment, Operation::divide},
    Punctuator{u"/", Role::binary, Operation::divide, Binding::product},
    Punctuator{u"%=", Role::assignment, Operation::remainder},
    Punctuator{u"%", Role::binary, Operation::remainder, Binding::product},
    Punctuator{u"^=", Role::assignment, Operation::bitXor},
    Punctuator{u"^", Role::binary, Operation::bitXor, Binding::bitXor},
    Punctuator{u"(", Role::open},
    Punctuator{u")", Role::close},
    Punctuator{u"[", Role::openIndex},
    Punctuator{u"]", Role::closeIndex},
    Punctuator{u",", Role::comma, Operation::comma, Binding::comma},
    Punctuator{u":", Role::colon},
    Punctuator{u".", Role::point},
    Punctuator{u";", Role::end},
    Punctuator{u"`", Role::templateText},
};

}  // namespace kx
