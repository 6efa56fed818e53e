/// @file
/// Functions of the catalogues that work on texts, each as its JavaScript does.
#pragma once

#include "native/Conversions.h"
#include "native/FunctionEntries.h"
#include "text/Digit.h"
#include "text/WhiteSpace.h"

namespace kx {

bool ascii(Arguments arguments, Workspace& workspace, Value& result);
bool at(Arguments arguments, Workspace& workspace, Value& result);
bool atc(Arguments arguments, Workspace& workspace, Value& result);
bool charOf(Arguments arguments, Workspace& workspace, Value& result);
bool chrtran(Arguments arguments, Workspace& workspace, Value& result);
bool concat(Arguments arguments, Workspace& workspace, Value& result);
bool frac(Arguments arguments, Workspace& workspace, Value& result);
bool insert(Arguments arguments, Workspace& workspace, Value& result);
bool ioccurs(Arguments arguments, Workspace& workspace, Value& result);
bool isControl(Arguments arguments, Workspace& workspace, Value& result);
bool isPunctuation(Arguments arguments, Workspace& workspace, Value& result);
bool left(Arguments arguments, Workspace& workspace, Value& result);
bool len(Arguments arguments, Workspace& workspace, Value& result);
bool locate(Arguments arguments, Workspace& workspace, Value& result);
bool occurs(Arguments arguments, Workspace& workspace, Value& result);
bool rat(Arguments arguments, Workspace& workspace, Value& result);
bool ratc(Arguments arguments, Workspace& workspace, Value& result);
bool repeat(Arguments arguments, Workspace& workspace, Value& result);
bool replace(Arguments arguments, Workspace& workspace, Value& result);
bool right(Arguments arguments, Workspace& workspace, Value& result);
bool rpad(Arguments arguments, Workspace& workspace, Value& result);
bool space(Arguments arguments, Workspace& workspace, Value& result);
bool substrOf(Arguments arguments, Workspace& workspace, Value& result);
bool truncate(Arguments arguments, Workspace& workspace, Value& result);
bool val(Arguments arguments, Workspace& workspace, Value& result);

/// STR and STRZ: the number cut to so many decimals, filled up at the left.
bool fillUp(Arguments arguments, char16_t filler, Workspace& workspace, Value& result);
/// The first unit of the argument's text, as a text; empty where there is none.
bool firstUnit(Value const& value, Workspace& workspace, std::u16string_view& unit);
/// Its code, or -1.
inline int codeOf(std::u16string_view unit) { return unit.empty() ? -1 : unit.front(); }

template <char16_t kFiller>
bool str(Arguments arguments, Workspace& workspace, Value& result) {
    return fillUp(arguments, kFiller, workspace, result);
}

template <Match::Pattern kPattern>
bool trimmed(Arguments arguments, Workspace& workspace, Value& result) {
    return trimText(arguments[0], kPattern, workspace, result);
}

template <bool kIsUpper>
bool inCase(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    return text && changeCase(*text, kIsUpper, workspace.arena, result);
}

constexpr bool isUpper(char16_t unit) { return unit >= u'A' && unit <= u'Z'; }
constexpr bool isLower(char16_t unit) { return unit >= u'a' && unit <= u'z'; }
constexpr bool isLetter(char16_t unit) { return isUpper(unit) || isLower(unit); }
constexpr bool isAlphanumeric(char16_t unit) { return isLetter(unit) || isDigit(unit); }
constexpr bool isWhiteSpaceUnit(char16_t unit) { return isWhiteSpace(unit); }

/// Whether a unit is of a class. Asked with a regular expression over that unit alone.
bool isOfClass(std::u16string_view unit, bool (*isMember)(char16_t), Workspace& workspace);

template <bool (*kIsMember)(char16_t)>
bool isClass(Arguments arguments, Workspace& workspace, Value& result) {
    std::u16string_view unit;
    return firstUnit(arguments[0], workspace, unit) &&
           setResult(isOfClass(unit, kIsMember, workspace), result);
}

template <int kFirst, int kLast>
bool isInRange(Arguments arguments, Workspace& workspace, Value& result) {
    std::u16string_view unit;
    return firstUnit(arguments[0], workspace, unit) &&
           setResult(codeOf(unit) >= kFirst && codeOf(unit) <= kLast, result);
}

}  // namespace kx
