#pragma once

#include <optional>
#include <string>

#include <v8.h>

namespace kx {

/// What an error text is made of. Columns count from 0, lines from 1.
struct ScriptFailure {
    int line = 0;
    int startColumn = 0;
    int endColumn = 0;
    std::u16string exception;
    std::u16string sourceLine;
    bool hasPlace = true;
};

/// The error text of a failure with a known place: line, exception, source line, and carets under
/// the columns from `startColumn` up to, but not including, `endColumn`. Each of the four lines
/// ends with CR LF.
std::u16string composeErrorText(ScriptFailure const& failure);

/// The exception that `capture` holds. Its text is empty where it cannot be converted to one.
/// Nothing where the conversion ran a script that was ended.
std::optional<ScriptFailure> scriptFailureOf(v8::Isolate* isolate, v8::Local<v8::Context> context,
                                             v8::TryCatch const& capture);

/// The error text of a failure; without a place, it is the exception alone.
std::u16string errorTextOf(ScriptFailure const& failure);

}  // namespace kx
