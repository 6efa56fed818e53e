// The store of compiled scripts: parsing into it, running from it.
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "engine/PersistentHandle.h"
#include "engine/Text.h"
#include "host/CompiledScript.h"
#include "host/ErrorText.h"
#include "host/Failure.h"
#include "host/HostEngine.h"
#include "host/KxJsParser.h"
#include "host/ScriptRun.h"

namespace {

constexpr std::int32_t kNotParsed = -1;

}  // namespace

std::int32_t KxJsParser::parse(std::u16string source, std::u16string& error) {
    if (!_mEngine->isUsable() || _mContext == nullptr) return kNotParsed;
    _mLastFailure.reset();
    v8::Isolate* const isolate = _mEngine->isolate();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::Context> const context = _mContext->get(isolate);
    v8::Context::Scope const entered(context);
    kx::ScriptRun const run(*_mEngine);
    std::u16string const wrapped = addWrapper(source);
    std::size_t const prologueLength = wrapped.size() - source.size();
    v8::TryCatch capture(isolate);
    v8::Local<v8::String> const text = kx::toEngineString(isolate, wrapped);
    if (text.IsEmpty()) {
        error = u"The source is longer than the engine allows";
        noteFailure(KxJsFailure::Kind::COMPILE_ERROR, error);
        return kNotParsed;
    }
    v8::Local<v8::Script> script;
    if (!v8::Script::Compile(context, text).ToLocal(&script)) {
        error = reportException(capture, KxJsFailure::Kind::COMPILE_ERROR,
                                {v8::Message::kNoScriptIdInfo, prologueLength});
        return kNotParsed;
    }
    _mVecOfCompiledScripts.push_back(std::make_unique<kx::CompiledScript>(
        _mEngine->record().handles(), script, wrapped, prologueLength));
    return static_cast<std::int32_t>(_mVecOfCompiledScripts.size() - 1);
}

std::u16string KxJsParser::execute(std::int32_t index, std::u16string& error) {
    if (!_mEngine->isUsable() || _mContext == nullptr) {
        error = kx::kElsewhere;
        return {};
    }
    auto const place = static_cast<std::size_t>(index);  // a negative one becomes huge
    if (place >= _mVecOfCompiledScripts.size()) {
        _mLastFailure.reset();
        throw std::out_of_range("invalid vector<T> subscript");
    }
    return runUnlessRefused(*_mVecOfCompiledScripts[place], error);
}

std::u16string KxJsParser::evaluate(std::u16string source, std::u16string& error) {
    if (!_mEngine->isUsable() || _mContext == nullptr) {
        error = kx::kElsewhere;
        return {};
    }
    std::int32_t const index = parse(std::move(source), error);
    if (index == kNotParsed) return {};
    // Run from outside the store, and freed here: on the host's thread, with the isolate alive.
    std::unique_ptr<kx::CompiledScript> const script = std::move(_mVecOfCompiledScripts.back());
    _mVecOfCompiledScripts.pop_back();
    return runUnlessRefused(*script, error);
}

std::u16string KxJsParser::runUnlessRefused(kx::CompiledScript const& script,
                                            std::u16string& error) {
    if (!_mEngine->isRefused()) return run(script, error);
    error = kx::refusal(*_mEngine);
    noteFailure(KxJsFailure::Kind::LIMIT, error);
    return {};
}

std::u16string KxJsParser::run(kx::CompiledScript const& script, std::u16string& error) {
    _mLastFailure.reset();
    v8::Isolate* const isolate = _mEngine->isolate();
    v8::HandleScope const handles(isolate);
    // Not entered here: whatever needs it does so by itself.
    v8::Local<v8::Context> const context = _mContext->get(isolate);
    kx::ScriptRun const run(*_mEngine);
    _mEngine->countScript();
    v8::TryCatch capture(isolate);
    // Before the run: what it calls in an isolate of the application may reset the host.
    kx::CallerSource const source = script.callerSource();
    v8::Local<v8::Value> completion;
    bool const hasCompleted = script.forRun(isolate, context)->Run(context).ToLocal(&completion);
    if (hasCompleted || !capture.HasTerminated()) _mEngine->record().runPromiseJobs();
    // The conversion runs the value's own toString, so it can fail as the script itself can.
    bool const hasResult = hasCompleted && !capture.HasTerminated();
    std::u16string result =
        hasResult ? kx::textOfValue(isolate, context, completion) : std::u16string();
    if (hasResult && !completion->IsString() && completion->IsObject())
        _mEngine->record().runPromiseJobs();
    if (capture.HasCaught()) {
        error = reportException(capture, KxJsFailure::Kind::RUN_ERROR, source);
        result.clear();
    } else if (kx::contains(result, u'N') && result.find(u"NaN") != std::u16string::npos) {
        error = u"Not A Number";
    }
    return result;
}

std::u16string KxJsParser::reportException(v8::TryCatch& capture, KxJsFailure::Kind kind,
                                           kx::CallerSource const& source) {
    v8::Isolate* const isolate = _mEngine->isolate();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::Context> const context = _mContext->get(isolate);
    v8::Context::Scope const entered(context);
    std::optional<kx::ScriptFailure> failure;
    if (!capture.HasTerminated()) failure = kx::scriptFailureOf(isolate, context, capture);
    if (!failure) {
        std::u16string text = kx::endText(*_mEngine);
        noteFailure(KxJsFailure::Kind::LIMIT, text);
        return text;
    }
    noteFailure(kind, failure->exception);
    if (failure->hasPlace) {
        kx::locateFailure(isolate, context, capture.Message(), source, *_mLastFailure);
    }
    std::u16string text = kx::errorTextOf(*failure);
    // What the exception's own toString has left to do would run with the next script, whose ever.
    v8::TryCatch const ended(isolate);
    _mEngine->record().runPromiseJobs();
    return text;
}

void KxJsParser::noteFailure(KxJsFailure::Kind kind, std::u16string const& message) {
    _mLastFailure = std::make_unique<KxJsFailure>();
    _mLastFailure->kind = kind;
    _mLastFailure->message = message;
}

void KxJsParser::clearVecOfCompiledScripts() {
    std::list<kx::HostRemains> remains(1);
    auto& scripts = remains.front().scripts;
    scripts.reserve(_mVecOfCompiledScripts.size());
    for (auto& script : _mVecOfCompiledScripts) scripts.push_back(std::move(script));
    _mVecOfCompiledScripts.clear();  // keeps its capacity: the next scripts are as many
    _mEngine->release(std::move(remains));
}

// By value, as callers were compiled against it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
v8::Local<v8::String> KxJsParser::_convertStdStringToV8String(std::u16string text) {
    return kx::toEngineString(v8::Isolate::GetCurrent(), text);
}

std::u16string KxJsParser::_convertV8StringToStdString(v8::Local<v8::String> text) {
    return kx::fromEngineString(v8::Isolate::GetCurrent(), text);
}

std::u16string KxJsParser::_convertV8StringToStdString(v8::Local<v8::Value> value) {
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    return kx::textOfValue(isolate, isolate->GetCurrentContext(), value);
}
