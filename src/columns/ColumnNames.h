#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <v8.h>

namespace kx {

/// What a name of a formula stands for, as far as the fast evaluation of columns knows names.
enum class NameMeaning : std::uint8_t {
    constant,    ///< true, NaN and the like
    engine,      ///< Math, and functions of the engine without effects
    catalogue,   ///< a built-in function without effects, to be called as it is
    evaluating,  ///< IIF, COND: built-in functions that evaluate texts
    unknown
};

/// The global object's own value for `name`; undefined where it has none.
v8::Local<v8::Value> globalValue(v8::Local<v8::Context> context, std::u16string_view name);

/// Whether `value` is a function of the script `scriptId` that was declared under `name`.
bool isFunctionOf(v8::Local<v8::Value> value, int scriptId, std::u16string_view name);

/// Whether the built-in function `name` runs texts that it is given.
bool evaluatesTexts(std::u16string_view name);

/// What `name` means in the entered context at this moment. `libraryId` is the engine's number of
/// the script that defines the built-in functions: what scripts have put in their place is unknown.
NameMeaning meaningOf(v8::Local<v8::Context> context, std::u16string const& name, int libraryId);

}  // namespace kx
