// Formulas of a host in this process that run without V8, and what V8 has to know of them.
//
// A formula is evaluated here only while the context is as a new host has it, but for plain
// variables. Any script may change that, so a script that may have effects ends it for the host.
#include <algorithm>

#include "engine/Text.h"
#include "host/BoundVariable.h"
#include "host/InProcessHost.h"
#include "native/Effects.h"
#include "translate/RunTimePart.h"

namespace kx {

namespace {

bool isConstant(std::u16string_view name) {
    return name == u"undefined" || name == u"NaN" || name == u"Infinity";
}

}  // namespace

bool InProcessHost::arePlain(ScriptSource const& source) {
    // The run-time part of translated formulas cannot be assigned to.
    return std::all_of(
        source.variables.begin(), source.variables.end(),
        [](BoundVariable* variable) { return variable->isPlain() && variable->key() != u"kx"; });
}

bool InProcessHost::isNativeAllowed() const {
    if (!isNativeOn_ || hadEffects_ || !record_->hasStackLeft()) return false;
    // An application may be about to end what runs in its isolate.
    return record_->isOwn() || !isolate()->IsExecutionTerminating();
}

std::optional<Program> InProcessHost::makeProgram(Expression const& expression,
                                                  ScriptSource const& source) {
    if (source.variables.size() > Evaluator::kMostVariables) return std::nullopt;
    names_.clear();
    for (BoundVariable const* const variable : source.variables) {
        names_.emplace_back(variable->key());
    }
    return Program::make(expression, {names_, hasLibrary_ || isLibraryDeferred_, hasRunTimePart_});
}

Evaluator& InProcessHost::evaluator() {
    if (evaluator_ == nullptr) evaluator_ = std::make_unique<Evaluator>();
    return *evaluator_;
}

Value const* InProcessHost::compute(HostScript const& script) {
    if (script.program() == nullptr) return nullptr;
    std::vector<BoundVariable*> const& variables = script.source().variables;
    std::span<Value> const values = evaluator().variableValues(variables.size());
    std::transform(variables.begin(), variables.end(), values.begin(),
                   [](BoundVariable const* variable) { return variable->nativeValue(); });
    return evaluator_->run(*script.program(), values);
}

void InProcessHost::noteRun(HostScript const& script) {
    std::vector<BoundVariable*> const& variables = script.source().variables;
    deferred_.noteRun(variables, evaluator_->variableValues(variables.size()));
    deferred_.noteMatch(evaluator_->match());
}

V8Script const* InProcessHost::prepare(HostScript const& script, v8::Local<v8::Context> context) {
    applyDeferred(context);
    if (script.compiled() == nullptr) {
        if (script.program() != nullptr) {
            Expression const* const tree = expressionParser_.parse(script.source().text);
            script.setEffects(effectsOf(tree, script.source()));
        }
        if (!compileInV8(script, context)) return nullptr;
    }
    noteEffects(script.effects(), context);
    return script.compiled();
}

bool InProcessHost::compileInV8(HostScript const& script, v8::Local<v8::Context> context) {
    v8::HandleScope const handles(isolate());
    v8::Context::Scope const entered(context);  // newer engines compile in the current one only
    std::u16string whole = script.source().prologue();
    std::size_t const prologueLength = whole.size();
    whole += script.source().text;
    v8::Local<v8::String> const text = toV8String(isolate(), whole);
    v8::Local<v8::Script> compiled;
    if (text.IsEmpty() || !v8::Script::Compile(context, text).ToLocal(&compiled)) return false;
    script.setCompiled(record_->handles(), compiled, prologueLength);
    return true;
}

ScriptEffects InProcessHost::effectsOf(Expression const* expression,
                                       ScriptSource const& source) const {
    ScriptEffects effects;
    if (hadEffects_ || !arePlain(source)) return effects;
    if (expression == nullptr) {
        effects.isRunTimePart = translate::isRunTimePart(source.text);
        effects.mayHave = !effects.isRunTimePart;
        return effects;
    }
    auto const names = namesReadWithoutEffects(*expression);
    if (!names) return effects;
    effects.mayHave = false;
    for (std::u16string_view const name : *names) {
        bool const isVariable =
            std::any_of(source.variables.begin(), source.variables.end(),
                        [name](BoundVariable const* variable) { return variable->key() == name; });
        if (!isVariable && !isConstant(name)) effects.unlessPlain.emplace_back(name);
    }
    return effects;
}

void InProcessHost::noteEffects(ScriptEffects const& effects, v8::Local<v8::Context> context) {
    if (hadEffects_) return;
    hadEffects_ = effects.mayHave;
    if (effects.unlessPlain.empty()) return;
    v8::HandleScope const handles(isolate());
    v8::TryCatch const ignored(isolate());
    // No script has changed what the names stand for, so that reading them runs none.
    for (std::u16string const& name : effects.unlessPlain) {
        v8::Local<v8::Value> value;
        bool const isRead =
            context->Global()->Get(context, toV8Name(isolate(), name)).ToLocal(&value);
        hadEffects_ = hadEffects_ || !isRead || value->IsObject();
    }
}

void InProcessHost::declareHarmless(HostScript const& script) {
    if (arePlain(script.source())) script.setEffects({.mayHave = false});
}

CallerSource InProcessHost::callerSourceOf(HostScript const& script) {
    if (script.compiled() != nullptr) return script.compiled()->callerSource();
    return {v8::Message::kNoScriptIdInfo, script.source().prologue().size()};
}

void InProcessHost::applyDeferred(v8::Local<v8::Context> context) {
    if (deferred_.isEmpty()) return;
    v8::HandleScope const handles(isolate());
    v8::Context::Scope const entered(context);
    deferred_.apply(context, globalTemplate_->get(isolate()), carriers_);
}

}  // namespace kx
