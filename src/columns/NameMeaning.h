#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <v8.h>

namespace kx {

/// What a name of a formula stands for, as far as a kernel knows names.
enum class NameMeaning : std::uint8_t {
    constant,    ///< true, NaN and the like
    standard,    ///< Math, and JavaScript's functions without effects
    catalogue,   ///< a built-in function without effects, to be called as it is
    evaluating,  ///< IIF, COND: built-in functions that evaluate texts
    unknown
};

/// The value of the global object's property `name`; undefined where it has none.
v8::Local<v8::Value> globalValue(v8::Local<v8::Context> context, std::u16string_view name);

/// The values that scripts find under `names`, in the entered context. Nothing where one of them is
/// not the global object's: a script has declared that name with let, const or class. The names
/// must be identifiers, and their properties no getters, which would run.
std::optional<std::vector<v8::Local<v8::Value>>> unshadowedValues(
    v8::Local<v8::Context> context, std::vector<std::u16string> const& names);

/// Whether `value` is a function of the script `scriptId` that was declared under `name`.
bool isFunctionOf(v8::Local<v8::Value> value, int scriptId, std::u16string_view name);

/// Whether the built-in function `name` evaluates texts that it is given.
bool evaluatesTexts(std::u16string_view name);

/// What `name` means in the entered context at this moment. `libraryId` is V8's number of the
/// script that defines the built-in functions: functions of other scripts in their place are
/// unknown.
NameMeaning meaningOf(v8::Local<v8::Context> context, std::u16string const& name, int libraryId);

}  // namespace kx
