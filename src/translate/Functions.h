#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "library/FunctionTable.h"
#include "translate/Tree.h"

namespace kx::translate {

/// How many decimals STR shows of a function's result without being told.
enum class ScaleRule : std::uint8_t { none, zero, two, ofArgument, ofRounding };

/// Functions that are told the scale of their first argument by a last one that formulas lack.
enum class Scaled : std::uint8_t { no, yes };

/// A function of the older language. Its record's body is the body of its run-time function.
struct LanguageFunction {
    FunctionRow row;
    std::initializer_list<char16_t const*> synonyms = {};
    Kind result = Kind::unknown;
    ScaleRule scale = ScaleRule::none;
    Scaled scaled = Scaled::no;
    bool isVariadic = false;
    bool isOmittedNil = false;  // an argument left out between commas is NIL, not a missing one
};

using LanguageTable = std::initializer_list<LanguageFunction>;

extern LanguageTable const textFunctions;
extern LanguageTable const textSearchFunctions;
extern LanguageTable const numberFunctions;
extern LanguageTable const dateFunctions;
extern LanguageTable const valueFunctions;

/// What a function's name in a formula means.
struct FunctionName {
    enum class Meaning : std::uint8_t {
        unknown,
        language,
        installed,
        ambiguous,
        cases,
        evaluation
    };
    Meaning meaning = Meaning::unknown;
    LanguageFunction const* function = nullptr;  // language
};

/// Looks up a name in upper case. Names cut to four letters or more count, where one function fits.
FunctionName findFunction(std::u16string_view name);

/// All functions, in the order of the tables.
std::vector<LanguageFunction const*> const& languageFunctions();

/// Installed functions that the older language lacks.
bool isInstalledOnly(std::u16string_view name);

}  // namespace kx::translate
