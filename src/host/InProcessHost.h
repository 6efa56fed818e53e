#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <v8.h>

#include "engine/PersistentHandle.h"
#include "expression/Parser.h"
#include "host/BoundVariable.h"
#include "host/Carriers.h"
#include "host/DeferredEffects.h"
#include "host/HostBackend.h"
#include "host/HostResources.h"
#include "host/HostScript.h"
#include "host/IsolateRecord.h"
#include "host/RunLimits.h"

class KxJsParser;

namespace kx {

/// The backend that runs scripts in this process: one V8 context in the isolate of the thread that
/// made it.
///
/// Beside the members of HostBackend, which are texts in and texts out, it has the steps of a run
/// one by one, for evaluations that run a script many times: columns.
class InProcessHost final : public HostBackend {
  public:
    /// `variables` are the caller's; `accessorName` is the property through which scripts read
    /// them. Both outlive the host.
    InProcessHost(Variables const& variables, std::u16string_view accessorName);

    bool isOnItsThread() const override;
    bool isUsable() const override {
        return isOnItsThread() && (context_ != nullptr || isContextDeferred_);
    }
    void installLibrary() override;
    std::unique_ptr<CompiledScript> compile(std::u16string_view source,
                                            std::u16string& error) override;
    std::u16string run(CompiledScript const& script, std::u16string& error) override;
    void reset(Variables& variables, CompiledScripts& scripts) override;
    void releaseAll(Variables variables, CompiledScripts scripts) noexcept override;
    void variableWasSet(KxJsVariable const& /*variable*/) noexcept override { ++otherChanges_; }
    void setTimeLimit(std::chrono::milliseconds limit) override { limits_.setTimeLimit(limit); }
    void setMemoryLimit(std::size_t bytes) override;
    void terminate() override { limits_.requestEnd(EndReason::terminated); }
    EndReason endReason() const override { return limits_.endReason(); }

    v8::Isolate* isolate() const { return record_->isolate(); }
    /// Makes sure that there is a context. False, with a text in `error`, where V8 cannot make it
    /// now.
    bool makeContext(std::u16string& error);
    /// Precondition: makeContext().
    v8::Local<v8::Context> context() const { return context_->get(isolate()); }
    std::shared_ptr<IsolateRecord> const& record() const { return record_; }
    RunLimits& limits() { return limits_; }
    Variables const& variables() const { return variables_; }

    /// What scripts read of `variable`, one of variables().
    BoundVariable& bound(KxJsVariable const& variable) {
        return carriers_.bound(variable, accessorName_, record_->handles());
    }
    std::u16string_view accessorName() const { return accessorName_; }

    /// Runs `script` once, then its promise jobs. Returns the completion value, or an empty handle
    /// where something was thrown: that is in `capture`. Belongs inside a LimitedRun.
    v8::Local<v8::Value> runOnce(CompiledScript const& script, v8::Local<v8::Context> context,
                                 v8::TryCatch const& capture) {
        return runPrepared(prepare(static_cast<HostScript const&>(script), context), context,
                           capture);
    }

    /// The same for what prepare() has returned.
    v8::Local<v8::Value> runPrepared(V8Script const* compiled, v8::Local<v8::Context> context,
                                     v8::TryCatch const& capture) {
        v8::Local<v8::Value> completion;
        bool const hasCompleted =
            compiled != nullptr &&
            compiled->forRun(isolate(), context)->Run(context).ToLocal(&completion);
        if (hasCompleted || !capture.HasTerminated()) record_->runPromiseJobs();
        return capture.HasTerminated() ? v8::Local<v8::Value>() : completion;
    }

    /// To be called once `completion` is converted. That may have called scripts of the value,
    /// which may have left promise jobs: runs them.
    void endConversion(v8::Local<v8::Value> completion) {
        if (!completion->IsString() && completion->IsObject()) record_->runPromiseJobs();
    }

    /// Makes what a run of `script` has left in `capture` the last failure. Returns its error text.
    std::u16string reportFailure(v8::TryCatch const& capture, CompiledScript const& script) {
        return reportException(capture, KxJsFailure::Kind::RUN_ERROR,
                               callerSourceOf(static_cast<HostScript const&>(script)));
    }

    /// Evaluates formulas without V8 where that shows in nothing but time. On by default.
    void setNativeEvaluation(bool isOn) override { isNativeOn_ = isOn; }

    /// Whether formulas may be evaluated without V8 now.
    bool isNativeAllowed() const;

    /// Runs `script` once without V8, where its values and isNativeAllowed() let it. `take` gets
    /// the evaluator and the value, and says whether it could use that. False where V8 has to run
    /// the script; nothing has happened then.
    template <class Take>
    bool runNatively(HostScript const& script, Take take) {
        if (!isNativeAllowed()) return false;
        Value const* const value = compute(script);
        if (value == nullptr || !take(*evaluator_, *value)) return false;
        noteRun(script);
        return true;
    }

    /// The same in steps, for evaluations that run a script many times.
    /// @{
    Evaluator& evaluator();
    void noteMatch(Match const& match) { deferred_.noteMatch(match); }
    /// @}

    /// Whether a script has run that may have changed what others see: globals beside those of
    /// variables with plain names, functions, members.
    bool hadEffects() const { return hadEffects_; }

    /// Counts what may change the results of formulas that columns have looked at before: scripts
    /// with effects alone, or those and everything else (variables, other evaluations).
    /// @{
    void countScript() { ++scriptsRun_; }
    void countChange() { ++otherChanges_; }
    std::uint64_t scriptsRun() const { return scriptsRun_; }
    std::uint64_t changes() const { return scriptsRun_ + otherChanges_; }
    /// @}

    /// Changes with each reset(): scripts compiled before have lost their carriers.
    std::uint64_t generation() const { return generation_; }

  private:
    void createContext();
    bool install(std::u16string& error);
    /// `text` with those of the variables whose keys are in it.
    ScriptSource bind(std::u16string_view text);
    static bool arePlain(ScriptSource const& source);
    void defineCarriers(ScriptSource const& source, v8::Local<v8::Context> context);
    std::optional<Program> makeProgram(Expression const& expression, ScriptSource const& source);
    Value const* compute(HostScript const& script);
    void noteRun(HostScript const& script);
    std::u16string runInV8(HostScript const& script, std::u16string& error);
    /// Makes sure that V8 has compiled `script`, and that it sees what has been deferred. Null
    /// where that fails.
    V8Script const* prepare(HostScript const& script, v8::Local<v8::Context> context);
    /// False where V8 throws, or the text is too long for it.
    bool compileInV8(HostScript const& script, v8::Local<v8::Context> context);
    ScriptEffects effectsOf(Expression const* expression, ScriptSource const& source) const;
    void noteEffects(ScriptEffects const& effects, v8::Local<v8::Context> context);
    /// Of the host's own script: it deletes globals of variables. Where those are nothing else, no
    /// script sees more of it.
    static void declareHarmless(HostScript const& script);
    static CallerSource callerSourceOf(HostScript const& script);
    void applyDeferred(v8::Local<v8::Context> context);
    void deleteGlobals();
    std::u16string reportException(v8::TryCatch const& capture, KxJsFailure::Kind kind,
                                   CallerSource const& source);
    void release(std::list<HostResources> resources) noexcept;

    std::shared_ptr<IsolateRecord> record_;
    Variables const& variables_;
    std::u16string_view const accessorName_;
    RunLimits limits_;
    std::unique_ptr<PersistentHandle<v8::ObjectTemplate>> globalTemplate_;
    std::unique_ptr<PersistentHandle<v8::Context>> context_;
    Carriers carriers_;
    DeferredEffects deferred_;
    ExpressionParser expressionParser_;
    std::vector<std::u16string_view> names_;  // for makeProgram(): memory that stays
    std::unique_ptr<Evaluator> evaluator_;    // once there is something to evaluate
    bool isNativeOn_;
    bool isContextDeferred_ = false;  // until V8 is needed
    bool isLibraryDeferred_ = false;  // goes into the context as soon as there is one
    bool hasLibrary_ = false;
    bool hasRunTimePart_ = false;  // of translated formulas
    bool hadEffects_ = false;      // a script may have changed what others see
    std::uint64_t generation_ = 0;
    std::uint64_t scriptsRun_ = 0;
    std::uint64_t otherChanges_ = 0;
    // For releaseAll(), which must not allocate.
    std::list<HostResources> lastResources_ = std::list<HostResources>(1);
};

/// The backend of `parser`, which is one of this process.
InProcessHost& inProcessHost(KxJsParser const& parser);

}  // namespace kx
