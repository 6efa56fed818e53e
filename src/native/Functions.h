#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "native/TextArena.h"
#include "native/Value.h"

namespace kx {

/// The last regular expression that has matched. Scripts can read it (RegExp.lastMatch), so it has
/// to be matched in V8 too before a script runs there.
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

using Arguments = std::span<Value const>;

/// Computes a function that formulas call. False where that is left to V8.
using Compute = bool (*)(Arguments arguments, Workspace& workspace, Value& result);

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
inline double sizeOf(std::u16string_view text) { return static_cast<double>(text.size()); }
bool substr(std::u16string_view text, Value const& start, Value const& length, Value& result);
bool slice(std::u16string_view text, Value const& start, Value const& end, Value& result);
/// The place of the first occurrence from `start` on, or -1. Precondition: start <= text.size().
bool indexOf(std::u16string_view text, std::u16string_view part, std::size_t start,
             TextArena& arena, double& place);
bool lastIndexOf(std::u16string_view text, std::u16string_view part, TextArena& arena,
                 double& place);
bool changeCase(std::u16string_view text, bool isUpper, TextArena& arena, Value& result);
/// How often `part` occurs, without overlaps. Empty where that is too much work.
/// Precondition: !part.empty().
std::optional<std::size_t> countParts(std::u16string_view text, std::u16string_view part,
                                      TextArena& arena);
/// `text` so many times.
std::optional<std::u16string_view> repeated(std::u16string_view text, std::size_t times,
                                            TextArena& arena);
/// `text` with each unit of `sought` replaced by that of `replacement` at the same place, or left
/// out where there is none.
std::optional<std::u16string_view> replacedUnits(std::u16string_view text,
                                                 std::u16string_view sought,
                                                 std::u16string_view replacement, TextArena& arena);
bool trimText(Value const& value, Match::Pattern pattern, Workspace& workspace, Value& result);
/// toFixed() of JavaScript, for up to 20 decimals.
bool toFixed(double number, double decimals, TextArena& arena, Value& result);
/// @}

}  // namespace kx
