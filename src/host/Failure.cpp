#include "host/Failure.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "engine/Text.h"
#include "engine/V8Compat.h"
#include "text/LineEnd.h"
#include "text/NameUnits.h"

namespace kx {

namespace {

std::u16string wholeText(v8::Isolate* isolate, v8::Local<v8::String> text) {
    if (text.IsEmpty()) return {};
    // Lines are counted beyond a U+0000 too.
    std::u16string result(static_cast<std::size_t>(text->Length()), u'\0');
    v8compat::writeCodeUnits(isolate, text, result.data());
    return result;
}

int linesBefore(std::u16string_view text, std::size_t position) {
    int lines = 0;
    for (std::size_t at = nextLine(text, 0); at <= position; at = nextLine(text, at)) ++lines;
    return lines;
}

std::u16string_view lineOf(std::u16string_view text, int number) {
    std::size_t start = 0;
    for (int line = 1; line < number && start != std::u16string_view::npos; ++line) {
        start = nextLine(text, start);
    }
    if (start == std::u16string_view::npos) return {};
    return text.substr(start, text.find_first_of(kLineEnds, start) - start);
}

/// Of what V8 knows by its first column only, the name that begins there is marked.
int endOfName(std::u16string_view line, int start) {
    auto at = static_cast<std::size_t>(start);
    while (at < line.size() && mayBeNamePart(line[at])) ++at;
    return std::max(static_cast<int>(at), start + 1);
}

/// `line` counts from 1 and the columns from 0, in the text with its prologue.
void place(std::u16string_view text, int line, int start, int end, int prologueLines,
           KxJsFailure& failure) {
    if (line <= prologueLines || start < 0) return;
    failure.line = line - prologueLines;
    failure.sourceLine = lineOf(text, line);
    // A mistake of several lines is marked up to the end of its first.
    auto const lineEnd = std::max(static_cast<int>(failure.sourceLine.size()), start);
    failure.column = start + 1;
    failure.endColumn = std::clamp(end, start, lineEnd) + 1;
}

/// The text that `message` lies in.
std::u16string textOf(v8::Isolate* isolate, v8::Local<v8::Context> context,
                      v8::Local<v8::Message> message) {
    v8::Local<v8::String> source;
    if (!message->GetSource(context).ToLocal(&source)) return {};
    return wholeText(isolate, source);
}

void placeMessage(v8::Isolate* isolate, v8::Local<v8::Context> context,
                  v8::Local<v8::Message> message, std::size_t prologueLength,
                  KxJsFailure& failure) {
    std::u16string const text = textOf(isolate, context, message);
    int const line = message->GetLineNumber(context).FromMaybe(0);
    int const start = message->GetStartColumn();
    int end = message->GetEndColumn();
    // Of a failure at run time, V8 knows where it begins only.
    if (failure.kind == KxJsFailure::Kind::RUN_ERROR && start >= 0 && end == start + 1) {
        end = endOfName(lineOf(text, line), start);
    }
    place(text, line, start, end, linesBefore(text, prologueLength), failure);
}

}  // namespace

void locateFailure(v8::Isolate* isolate, v8::Local<v8::Context> context,
                   v8::Local<v8::Message> message, CallerSource const& source,
                   KxJsFailure& failure) {
    // What does not compile has no script number yet, and is always in the source.
    bool const isInSource = failure.kind == KxJsFailure::Kind::COMPILE_ERROR ||
                            message->GetScriptOrigin().ScriptId() == source.scriptId;
    if (isInSource) placeMessage(isolate, context, message, source.prologueLength, failure);
    v8::Local<v8::StackTrace> const trace = message->GetStackTrace();
    if (trace.IsEmpty()) return;

    std::u16string text;
    int prologueLines = 0;
    for (int i = 0; i < trace->GetFrameCount(); ++i) {
        v8::Local<v8::StackFrame> const call =
            trace->GetFrame(isolate, static_cast<std::uint32_t>(i));
        KxJsFailure::Frame frame{fromV8String(isolate, call->GetFunctionName()),
                                 call->GetLineNumber(), call->GetColumn(),
                                 call->GetScriptId() == source.scriptId};
        if (frame.isInSource) {
            if (text.empty()) {
                text = wholeText(isolate, call->GetScriptSource());
                prologueLines = linesBefore(text, source.prologueLength);
            }
            int const start = frame.column - 1;
            if (!isInSource && failure.line == 0) {
                int const end = endOfName(lineOf(text, frame.line), start);
                place(text, frame.line, start, end, prologueLines, failure);
                failure.isInCall = failure.line > 0;
            }
            // The prologue is not the caller's text.
            if (frame.line <= prologueLines) continue;
            frame.line -= prologueLines;
        }
        failure.frames.push_back(std::move(frame));
    }
}

}  // namespace kx
