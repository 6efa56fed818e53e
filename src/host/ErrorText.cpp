#include "host/ErrorText.h"

#include <algorithm>

#include "engine/Text.h"
#include "text/NumberText.h"

namespace kx {

std::u16string composeErrorText(ScriptFailure const& failure) {
    auto const blanks = static_cast<std::size_t>(std::max(failure.startColumn, 0));
    auto const carets =
        static_cast<std::size_t>(std::max(failure.endColumn - failure.startColumn, 0));
    return u"Error in line: " + decimalText(failure.line) + u"\r\n" +  //
           failure.exception + u"\r\n" +                               //
           failure.sourceLine + u"\r\n" +                              //
           std::u16string(blanks, u' ') + std::u16string(carets, u'^') + u"\r\n";
}

std::optional<ScriptFailure> scriptFailureOf(v8::Isolate* isolate, v8::Local<v8::Context> context,
                                             v8::TryCatch const& capture) {
    v8::HandleScope const handles(isolate);
    // The exception's own toString may throw too. That second exception is ignored.
    v8::TryCatch const second(isolate);
    ScriptFailure failure;
    failure.exception = textOfValue(isolate, context, capture.Exception());
    if (second.HasTerminated()) return std::nullopt;
    v8::Local<v8::Message> const message = capture.Message();
    failure.hasPlace = !message.IsEmpty();
    if (!failure.hasPlace) return failure;

    failure.line = message->GetLineNumber(context).FromMaybe(0);
    failure.startColumn = message->GetStartColumn();
    failure.endColumn = message->GetEndColumn();
    v8::Local<v8::String> sourceLine;
    if (message->GetSourceLine(context).ToLocal(&sourceLine)) {
        failure.sourceLine = fromV8String(isolate, sourceLine);
    }
    return failure;
}

std::u16string errorTextOf(ScriptFailure const& failure) {
    return failure.hasPlace ? composeErrorText(failure) : failure.exception;
}

}  // namespace kx
