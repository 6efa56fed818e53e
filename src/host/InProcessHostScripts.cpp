// Scripts of a host in this process: compiled with their variables, run, and what their failures
// become.
#include <optional>
#include <utility>

#include "engine/Text.h"
#include "host/ErrorText.h"
#include "host/Failure.h"
#include "host/InProcessHost.h"

namespace kx {

std::u16string InProcessHost::addWrapper(std::u16string_view source,
                                         v8::Local<v8::Context> context) {
    // A carrier that cannot be made shows when the script runs: the prologue finds no such name.
    v8::TryCatch const ignored(isolate());
    v8::Local<v8::ObjectTemplate> const shape = globalTemplate_->get(isolate());
    std::u16string wrapped;
    constexpr std::size_t kUsualPrologue = 128;
    wrapped.reserve(source.size() + kUsualPrologue);
    for (auto const& [key, variable] : variables_) {
        if (source.find(key) == std::u16string_view::npos) continue;
        v8::HandleScope const handles(isolate());
        BoundVariable& variableForScripts = bound(variable);
        wrapped += variableForScripts.prologueLine();
        v8::Local<v8::Object> const carrier = carriers_.make(context, shape, variableForScripts);
        v8::Local<v8::String> const name = variableForScripts.carrierName(isolate());
        if (carrier.IsEmpty() || name.IsEmpty()) continue;
        [[maybe_unused]] auto const isDefined =
            context->Global()->CreateDataProperty(context, name, carrier);
    }
    wrapped += source;
    return wrapped;
}

std::unique_ptr<CompiledScript> InProcessHost::compile(std::u16string_view source,
                                                       std::u16string& error) {
    forgetFailure();
    v8::HandleScope const handles(isolate());
    v8::Local<v8::Context> const entered = context();
    v8::Context::Scope const scope(entered);
    LimitedRun const run(limits_);
    std::u16string const wrapped = addWrapper(source, entered);
    std::size_t const prologueLength = wrapped.size() - source.size();
    v8::TryCatch const capture(isolate());
    v8::Local<v8::String> const text = toV8String(isolate(), wrapped);
    if (text.IsEmpty()) {
        error = u"The source is longer than the engine allows";
        noteFailure(KxJsFailure::Kind::COMPILE_ERROR, error);
        return nullptr;
    }
    v8::Local<v8::Script> script;
    if (!v8::Script::Compile(entered, text).ToLocal(&script)) {
        error = reportException(capture, KxJsFailure::Kind::COMPILE_ERROR,
                                {v8::Message::kNoScriptIdInfo, prologueLength});
        return nullptr;
    }
    return std::make_unique<V8Script>(record_->handles(), script, wrapped, prologueLength);
}

std::u16string InProcessHost::run(CompiledScript const& script, std::u16string& error) {
    if (limits_.isRefused()) {
        error = limits_.refusalText();
        noteFailure(KxJsFailure::Kind::LIMIT, error);
        return {};
    }
    forgetFailure();
    v8::HandleScope const handles(isolate());
    // Not entered: what needs that does so by itself.
    v8::Local<v8::Context> const context = this->context();
    LimitedRun const run(limits_);
    countScript();
    v8::TryCatch const capture(isolate());
    // A copy: what the script calls in an application's isolate may reset the host.
    CallerSource const source = static_cast<V8Script const&>(script).callerSource();
    v8::Local<v8::Value> const completion = runOnce(script, context, capture);
    // Calls the value's own toString, which can fail as the script can.
    std::u16string result = textOfValue(isolate(), context, completion);
    if (!completion.IsEmpty()) endConversion(completion);
    if (capture.HasCaught()) {
        error = reportException(capture, KxJsFailure::Kind::RUN_ERROR, source);
        result.clear();
    } else if (contains(result, u'N') && result.find(u"NaN") != std::u16string::npos) {
        error = u"Not A Number";
    }
    return result;
}

std::u16string InProcessHost::reportException(v8::TryCatch const& capture, KxJsFailure::Kind kind,
                                              CallerSource const& source) {
    v8::HandleScope const handles(isolate());
    v8::Local<v8::Context> const entered = context();
    v8::Context::Scope const scope(entered);
    std::optional<ScriptFailure> exception;
    if (!capture.HasTerminated()) exception = scriptFailureOf(isolate(), entered, capture);
    if (!exception) {
        std::u16string text = limits_.endText();
        noteFailure(KxJsFailure::Kind::LIMIT, text);
        return text;
    }
    KxJsFailure& failure = noteFailure(kind, exception->exception);
    if (exception->hasPlace) {
        locateFailure(isolate(), entered, capture.Message(), source, failure);
    }
    std::u16string text = errorTextOf(*exception);
    // The exception's own toString may have left jobs. They are not to run with the next script.
    v8::TryCatch const ended(isolate());
    record_->runPromiseJobs();
    return text;
}

}  // namespace kx
