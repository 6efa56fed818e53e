// Functions of the catalogues whose bodies do not look into their arguments, or only at numbers:
// each does what its JavaScript does. The guard against calls without arguments is Program's.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

#include "native/CatalogueTextFunctions.h"
#include "native/Conversions.h"
#include "native/FunctionEntries.h"

namespace kx {

namespace {

/// eval() of what is no text is itself.
bool iif(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    if (arguments[0].isText()) return false;
    result = isTrue(arguments[0]) ? arguments[1] : arguments[2];
    return true;
}

bool cond(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    result = {};
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        if (arguments[i].isText()) return false;
        if (!isTrue(arguments[i])) continue;
        if (i + 1 < arguments.size()) result = arguments[i + 1];
        break;
    }
    return true;
}

bool switchOf(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const value = toNumber(arguments[0]);
    if (!value) return false;
    double const place = *value + 1;
    bool const isThere =
        place >= 0 && place < static_cast<double>(arguments.size()) && place == std::trunc(place);
    result = isThere ? arguments[static_cast<std::size_t>(place)] : Value{};
    return true;
}

/// The argument as a number, if it is one in any form.
bool numberOrItself(Value const& value, Value& result) {
    auto const number = toNumber(value);
    if (!number) return false;
    result = std::isnan(*number) ? value : Value::of(*number);
    return true;
}

template <Operation kIsBeyond>
bool extreme(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    Value found;
    if (!numberOrItself(arguments[0], found)) return false;
    for (Value const& argument : arguments) {
        Value value;
        if (!numberOrItself(argument, value)) return false;
        auto const isBeyond = compare(kIsBeyond, found, value);
        if (!isBeyond) return false;
        if (*isBeyond) found = value;
    }
    result = found;
    return true;
}

bool between(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const isAbove = compare(Operation::greater, arguments[0], arguments[1]);
    if (!isAbove) return false;
    if (!*isAbove) return setResult(false, result);
    auto const isBelow = compare(Operation::less, arguments[0], arguments[2]);
    return isBelow && setResult(*isBelow, result);
}

bool inList(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    for (Value const& value : arguments.subspan(1)) {
        auto const isEqual = areEqual(arguments[0], value);
        if (!isEqual) return false;
        if (*isEqual) return setResult(true, result);
    }
    return setResult(false, result);
}

bool round(Arguments arguments, Workspace& workspace, Value& result) {
    auto const decimals = toWholeNumber(arguments[1]);
    return decimals && arguments[0].isNumber() &&
           toFixed(arguments[0].number, std::abs(*decimals), workspace.arena, result);
}

bool sign(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const number = toNumber(arguments[0]);
    if (!number) return false;
    // Null is neither below nor equal to zero.
    if (arguments[0].isNullish()) return setResult(1.0, result);
    return setResult(*number < 0 ? -1.0 : *number == 0 ? 0.0 : 1.0, result);
}

bool isEven(double number) { return std::fmod(number, 2) == 0; }

bool even(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const number = toNumber(arguments[0]);
    return number && setResult(isEven(*number), result);
}

bool odd(Arguments arguments, Workspace& workspace, Value& result) {
    auto const number = toNumber(arguments[0]);
    auto const text = toText(arguments[0], workspace.arena);
    if (!number || !text) return false;
    bool const isWhole = text->find(u'.') == std::u16string_view::npos;
    return setResult(isWhole && !isEven(*number), result);
}

bool degrees(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const number = toNumber(arguments[0]);
    return number && setResult(180 * *number / std::numbers::pi, result);
}

bool radians(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const number = toNumber(arguments[0]);
    return number && setResult(std::numbers::pi * *number / 180, result);
}

bool root(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const number = toNumber(arguments[0]);
    return number && setResult(std::sqrt(*number), result);
}

bool bump(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    Value first;
    Value second;
    Value third;
    if (!numberOrItself(arguments[0], first) || !numberOrItself(arguments[1], second) ||
        !numberOrItself(arguments[2], third)) {
        return false;
    }
    // What is no number is replaced by the first.
    if (!second.isNumber()) second = first;
    auto const isBelow = compare(Operation::less, first, second);
    auto const isAbove = compare(Operation::greater, first, third);
    if (!isBelow || !isAbove) return false;
    result = *isBelow ? second : *isAbove ? third : first;
    return true;
}

// Of JavaScript itself.

bool numberOf(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return setResult(toNumber(arguments[0]), result);
}

bool textOf(Arguments arguments, Workspace& workspace, Value& result) {
    return setResult(toText(arguments[0], workspace.arena), result);
}

bool truthOf(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return setResult(isTrue(arguments[0]), result);
}

bool isNotANumber(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const number = toNumber(arguments[0]);
    return number && setResult(std::isnan(*number), result);
}

constexpr std::array kFunctions = {
    Function{u"ALLTRIM", trimmed<Match::Pattern::blanksAround>, 1},
    Function{u"ASCII", ascii, 1},
    Function{u"AT", at, 3},
    Function{u"ATC", atc, 3},
    Function{u"BETWEEN", between, 3},
    Function{u"BUMP", bump, 3},
    Function{u"Boolean", truthOf, 1},
    Function{u"CHAR", charOf, 1},
    Function{u"CHRTRAN", chrtran, 3},
    Function{u"CONCAT", concat, 2},
    Function{u"COND", cond, Function::kAny},
    Function{u"DEGREES", degrees, 1},
    Function{u"EVEN", even, 1},
    Function{u"FRAC", frac, 1},
    Function{u"IIF", iif, 3},
    Function{u"INLIST", inList, Function::kAny},
    Function{u"INSERT", insert, 4},
    Function{u"IOCCURS", ioccurs, 2},
    Function{u"ISALNUM", isClass<isAlphanumeric>, 1},
    Function{u"ISALPHA", isClass<isLetter>, 1},
    Function{u"ISASCII", isInRange<0, 127>, 1},
    Function{u"ISCNTRL", isControl, 1},
    Function{u"ISDIGIT", isClass<isDigit>, 1},
    Function{u"ISGRAPH", isInRange<33, 126>, 1},
    Function{u"ISLOWER", isClass<isLower>, 1},
    Function{u"ISPRINT", isInRange<32, 126>, 1},
    Function{u"ISPUNCT", isPunctuation, 1},
    Function{u"ISSPACE", isClass<isWhiteSpaceUnit>, 1},
    Function{u"ISUPPER", isClass<isUpper>, 1},
    Function{u"ISXDIGIT", isClass<isHexadecimal>, 1},
    Function{u"LEFT", left, 2},
    Function{u"LEN", len, 1},
    Function{u"LOCATE", locate, 3},
    Function{u"LOWERCASE", inCase<false>, 1},
    Function{u"LTRIM", trimmed<Match::Pattern::leadingBlanks>, 1},
    Function{u"MAX", extreme<Operation::less>, Function::kAny},
    Function{u"MIN", extreme<Operation::greater>, Function::kAny},
    Function{u"Number", numberOf, 1},
    Function{u"OCCURS", occurs, 2},
    Function{u"ODD", odd, 1},
    Function{u"RADIANS", radians, 1},
    Function{u"RAT", rat, 3},
    Function{u"RATC", ratc, 3},
    Function{u"REPEAT", repeat, 2},
    Function{u"REPLACE", replace, 3},
    Function{u"RIGHT", right, 2},
    Function{u"ROUND", round, 2},
    Function{u"RPAD", rpad, 2},
    Function{u"RTRIM", trimmed<Match::Pattern::trailingBlanks>, 1},
    Function{u"SIGN", sign, 1},
    Function{u"SPACE", space, 1},
    Function{u"SQRT", root, 1},
    Function{u"STR", str<u' '>, 3},
    Function{u"STRZ", str<u'0'>, 3},
    Function{u"SUBSTR", substrOf, 3},
    Function{u"SWITCH", switchOf, Function::kAny},
    Function{u"String", textOf, 1},
    Function{u"TRUNCATE", truncate, 2},
    Function{u"UPPERCASE", inCase<true>, 1},
    Function{u"VAL", val, 1},
    Function{u"isNaN", isNotANumber, 1},
};

static_assert(isInOrder(kFunctions));

}  // namespace

Function const* findGlobalFunction(std::u16string_view name) {
    return findByName(kFunctions, name);
}

}  // namespace kx
