#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "native/TextArena.h"
#include "native/Value.h"

namespace kx {

/// The last regular expression that has matched. The functions' regular expressions leave traces
/// that scripts can read (RegExp.lastMatch), so whoever runs scripts later has to leave them, too.
struct Match {
    enum class Pattern : std::uint8_t {
        none,
        leadingBlanks,
        trailingBlanks,
        blanksAround,
        unit,
        number
    };

    Pattern pattern = Pattern::none;
    std::u16string_view subject = {};
};

/// What the functions of one evaluation share.
struct Workspace {
    TextArena arena;
    Match match;
};

/// Computes a function that formulas call. False where that is left to V8.
using Compute = bool (*)(std::span<Value const> arguments, Workspace& workspace, Value& result);

struct Function {
    std::u16string_view name;
    Compute compute = nullptr;
    /// Exactly so many arguments are handed over, undefined ones for those that are missing; as
    /// many as there are where it is kAny.
    std::uint8_t parameters = 0;
    static constexpr std::uint8_t kAny = 255;
};

/// Null for what is left to V8.
/// @{
Function const* findMathFunction(std::u16string_view name);
Value const* findMathConstant(std::u16string_view name);
/// The text itself is the first argument.
Function const* findTextMember(std::u16string_view name);
/// A function of the catalogues, or one of the global ones of JavaScript.
Function const* findGlobalFunction(std::u16string_view name);
/// @}

/// Steps that several functions have in common. `text` is the receiver.
/// @{
bool substr(std::u16string_view text, Value const& start, Value const& length, Value& result);
bool slice(std::u16string_view text, Value const& start, Value const& end, Value& result);
/// The place of the first occurrence from `start` on, or -1. Precondition: start <= text.size().
bool indexOf(std::u16string_view text, std::u16string_view part, std::size_t start,
             TextArena& arena, double& place);
bool lastIndexOf(std::u16string_view text, std::u16string_view part, TextArena& arena,
                 double& place);
bool changeCase(std::u16string_view text, bool isUpper, TextArena& arena, Value& result);
bool trimText(Value const& value, Match::Pattern pattern, Workspace& workspace, Value& result);
/// toFixed() of JavaScript, for up to 20 decimals.
bool toFixed(double number, double decimals, TextArena& arena, Value& result);
/// @}

}  // namespace kx
