/// @file
/// Functions of the catalogues that work on texts, each as its JavaScript does.
#pragma once

#include "native/Conversions.h"
#include "native/FunctionTable.h"
#include "text/Digit.h"
#include "text/WhiteSpace.h"

namespace kx {

bool ascii(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool at(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool atc(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool charOf(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool chrtran(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool concat(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool frac(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool insert(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool ioccurs(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool isControl(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool isPunctuation(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool left(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool len(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool locate(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool occurs(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool rat(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool ratc(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool repeat(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool replace(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool right(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool rpad(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool space(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool substrOf(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool truncate(std::span<Value const> arguments, Workspace& workspace, Value& result);
bool val(std::span<Value const> arguments, Workspace& workspace, Value& result);

/// STR and STRZ: the number cut to so many decimals, filled up at the left.
bool fillUp(std::span<Value const> arguments, char16_t filler, Workspace& workspace, Value& result);
/// The first unit of the argument's text, as a text; empty where there is none.
bool firstUnit(Value const& value, Workspace& workspace, std::u16string_view& unit);
/// Its code, or -1.
inline int codeOf(std::u16string_view unit) { return unit.empty() ? -1 : unit.front(); }

template <char16_t kFiller>
bool str(std::span<Value const> arguments, Workspace& workspace, Value& result) {
    return fillUp(arguments, kFiller, workspace, result);
}

template <Match::Pattern kPattern>
bool trimmed(std::span<Value const> arguments, Workspace& workspace, Value& result) {
    return trimText(arguments[0], kPattern, workspace, result);
}

template <bool kIsUpper>
bool inCase(std::span<Value const> arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    return text && changeCase(*text, kIsUpper, workspace.arena, result);
}

constexpr bool isUpper(char16_t unit) { return unit >= u'A' && unit <= u'Z'; }
constexpr bool isLower(char16_t unit) { return unit >= u'a' && unit <= u'z'; }
constexpr bool isLetter(char16_t unit) { return isUpper(unit) || isLower(unit); }
constexpr bool isAlphanumeric(char16_t unit) { return isLetter(unit) || isDigit(unit); }
constexpr bool isWhiteSpaceUnit(char16_t unit) { return isWhiteSpace(unit); }
constexpr bool isHexadecimal(char16_t unit) {
    return isDigit(unit) || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

/// Whether a unit is of a class. Asked with a regular expression over that unit alone.
bool isOfClass(std::u16string_view unit, bool (*isMember)(char16_t), Workspace& workspace);

template <bool (*kIsMember)(char16_t)>
bool isClass(std::span<Value const> arguments, Workspace& workspace, Value& result) {
    std::u16string_view unit;
    return firstUnit(arguments[0], workspace, unit) &&
           give(isOfClass(unit, kIsMember, workspace), result);
}

template <int kFirst, int kLast>
bool isInRange(std::span<Value const> arguments, Workspace& workspace, Value& result) {
    std::u16string_view unit;
    return firstUnit(arguments[0], workspace, unit) &&
           give(codeOf(unit) >= kFirst && codeOf(unit) <= kLast, result);
}

}  // namespace kx
