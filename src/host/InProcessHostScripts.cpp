// Scripts of a host in this process: compiled with their variables, run, and what their failures
// become.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "engine/Text.h"
#include "host/BoundVariable.h"
#include "host/ErrorText.h"
#include "host/Failure.h"
#include "host/InProcessHost.h"
#include "text/Contains.h"

namespace kx {

namespace {

/// Finds keys in a source. There may be many keys, most of them not in it.
class KeySearch {
  public:
    explicit KeySearch(std::u16string_view source) : source_(source) {
        std::uint64_t units = 0;  // in a register, not in memory
        for (char16_t const unit : source) units |= bitOf(unit);
        units_ = units;
    }

    bool finds(std::u16string_view key) const {
        return (key.empty() || (units_ & bitOf(key.front())) != 0) &&
               source_.find(key) != std::u16string_view::npos;
    }

  private:
    static std::uint64_t bitOf(char16_t unit) { return std::uint64_t{1} << (unit % 64); }

    std::u16string_view source_;
    std::uint64_t units_;  // which there are; those that share a bit are not told apart
};

}  // namespace

std::u16string ScriptSource::prologue() const {
    std::u16string lines;
    for (BoundVariable const* const variable : variables) lines += variable->prologueLine();
    return lines;
}

ScriptSource InProcessHost::bind(std::u16string_view text) {
    ScriptSource source;
    source.text = text;
    constexpr std::size_t kUsual = 4;
    source.variables.reserve(std::min(variables_.size(), kUsual));
    KeySearch const search(text);
    for (auto const& [key, variable] : variables_) {
        if (search.finds(key)) source.variables.push_back(&bound(variable));
    }
    return source;
}

std::unique_ptr<CompiledScript> InProcessHost::compile(std::u16string_view source,
                                                       std::u16string& error) {
    forgetFailure();
    auto script = std::make_unique<HostScript>(bind(source));
    Expression const* const tree = hadEffects_ ? nullptr : expressionParser_.parse(source);
    // V8 accepts what has a tree. It compiles that when it runs it first.
    bool const isDeferred = tree != nullptr && isNativeAllowed() && arePlain(script->source());
    if (isDeferred) script->setProgram(makeProgram(*tree, script->source()));
    if (script->program() == nullptr) script->setEffects(effectsOf(tree, script->source()));
    if (isDeferred) {
        for (BoundVariable* const variable : script->source().variables) {
            deferred_.noteCarrier(*variable);
        }
        return script;
    }
    if (!makeContext(error)) return nullptr;
    v8::HandleScope const handles(isolate());
    v8::Local<v8::Context> const entered = context();
    LimitedRun const run(limits_);
    applyDeferred(entered);
    defineCarriers(script->source(), entered);
    v8::TryCatch const capture(isolate());
    if (compileInV8(*script, entered)) return script;
    if (capture.HasCaught()) {
        error = reportException(capture, KxJsFailure::Kind::COMPILE_ERROR, callerSourceOf(*script));
    } else {
        error = u"The source is longer than the engine allows";
        noteFailure(KxJsFailure::Kind::COMPILE_ERROR, error);
    }
    return nullptr;
}

void InProcessHost::defineCarriers(ScriptSource const& source, v8::Local<v8::Context> context) {
    v8::TryCatch const ignored(isolate());
    v8::Local<v8::ObjectTemplate> const shape = globalTemplate_->get(isolate());
    for (BoundVariable* const variable : source.variables) {
        // One that no script can have touched is as good as a new one.
        if (!hadEffects_ && variable->globals().hasCarrier) continue;
        v8::HandleScope const handles(isolate());
        carriers_.define(context, shape, *variable);
    }
}

std::u16string InProcessHost::run(CompiledScript const& script, std::u16string& error) {
    if (limits_.isRefused()) {
        error = limits_.refusalText();
        noteFailure(KxJsFailure::Kind::LIMIT, error);
        return {};
    }
    forgetFailure();
    auto const& hostScript = static_cast<HostScript const&>(script);
    std::u16string result;
    bool const isDone =
        runNatively(hostScript, [&result](Evaluator& evaluator, Value const& value) {
            auto const text = evaluator.textOf(value);
            if (text) result = *text;
            return text.has_value();
        });
    if (isDone) {
        countChange();
    } else {
        result = runInV8(hostScript, error);
    }
    if (lastFailure() == nullptr && contains(result, u'N') &&
        result.find(u"NaN") != std::u16string::npos) {
        error = u"Not A Number";
    }
    return result;
}

std::u16string InProcessHost::runInV8(HostScript const& script, std::u16string& error) {
    if (!makeContext(error)) return {};
    v8::HandleScope const handles(isolate());
    // Not entered: what needs that does so by itself.
    v8::Local<v8::Context> const context = this->context();
    LimitedRun const run(limits_);
    countScript();
    v8::TryCatch const capture(isolate());
    V8Script const* const compiled = prepare(script, context);
    // Copies: what the script calls in an application's isolate may reset the host.
    CallerSource const source = callerSourceOf(script);
    bool const isRunTimePart = script.effects().isRunTimePart;
    v8::Local<v8::Value> const completion = runPrepared(compiled, context, capture);
    // Calls the value's own toString, which can fail as the script can.
    std::u16string result = textOfValue(isolate(), context, completion);
    if (!completion.IsEmpty()) endConversion(completion);
    if (!capture.HasCaught()) {
        hasRunTimePart_ = hasRunTimePart_ || isRunTimePart;
        return result;
    }
    error = reportException(capture, KxJsFailure::Kind::RUN_ERROR, source);
    return {};
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
