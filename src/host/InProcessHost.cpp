// The life of a host in this process: its context, the built-in functions, what it frees.
#include "host/InProcessHost.h"

#include <string_view>
#include <utility>

#include "engine/Text.h"
#include "engine/V8Compat.h"
#include "host/KxJsParser.h"
#include "host/LibraryScript.h"
#include "host/NativeDefault.h"

namespace kx {

namespace {

constexpr std::u16string_view kNoContext =
    u"V8 cannot run scripts now: the thread's stack is nearly used up";

}  // namespace

InProcessHost& inProcessHost(KxJsParser const& parser) {
    return static_cast<InProcessHost&>(parser._backend());
}

InProcessHost::InProcessHost(Variables const& variables, std::u16string_view accessorName)
    : record_(IsolateRecord::current()),
      variables_(variables),
      accessorName_(accessorName),
      limits_(*record_),
      isNativeOn_(isNativeByDefault()) {
    if (!isOnItsThread()) return;
    // An application may look into its own isolate, so there the context is made at once. Later
    // there will not be more stack.
    isContextDeferred_ = record_->isOwn() && record_->hasStackLeft();
    if (!isContextDeferred_) createContext();
}

bool InProcessHost::isOnItsThread() const {
    if (!record_->isCurrent()) return false;
    record_->followStack();
    record_->freePending();
    return true;
}

void InProcessHost::createContext() {
    v8::HandleScope const handles(isolate());
    v8::Local<v8::ObjectTemplate> const shape = v8::ObjectTemplate::New(isolate());
    shape->SetInternalFieldCount(1);
    v8compat::setReadOnlyAccessor(isolate(), shape, toV8String(isolate(), accessorName_),
                                  Carriers::accessorGetter);
    globalTemplate_ = makePersistent(record_->handles(), shape);
    v8::Local<v8::Context> const context = v8::Context::New(isolate(), nullptr, shape);
    if (context.IsEmpty()) return;
    Carriers::leaveGlobalEmpty(context);
    // Newer engines always offer it, and so does an engine that the application has started.
    if (record_->isOwn()) {
        v8::Local<v8::String> const name = toV8String(isolate(), u"WebAssembly");
        [[maybe_unused]] auto const isDeleted = context->Global()->Delete(context, name);
    }
    context_ = makePersistent(record_->handles(), context);
}

bool InProcessHost::makeContext(std::u16string& error) {
    if (!isContextDeferred_) return context_ != nullptr;
    if (record_->hasStackLeft()) createContext();
    if (context_ == nullptr) {
        error = kNoContext;
        noteFailure(KxJsFailure::Kind::RUN_ERROR, error);
        return false;
    }
    isContextDeferred_ = false;
    if (!isLibraryDeferred_) return true;
    if (install(error)) {
        isLibraryDeferred_ = false;
        hasLibrary_ = true;
        return true;
    }
    // The next time from the beginning.
    context_.reset();
    globalTemplate_.reset();
    isContextDeferred_ = true;
    return false;
}

void InProcessHost::installLibrary() {
    forgetFailure();
    countScript();
    // What was compiled before has to see its carriers first. Where little stack is left, the
    // caller has to be told that the functions cannot be installed.
    bool const mayDefer = deferred_.isEmpty() && record_->hasStackLeft();
    if (isContextDeferred_ && !isLibraryDeferred_ && mayDefer) {
        isLibraryDeferred_ = true;
        return;
    }
    std::u16string ignored;
    if (!makeContext(ignored)) return;
    {
        v8::HandleScope const handles(isolate());
        applyDeferred(context());
    }
    hasLibrary_ = install(ignored);
    hadEffects_ = hadEffects_ || !hasLibrary_;  // some of the functions may be there
}

bool InProcessHost::install(std::u16string& error) {
    v8::HandleScope const handles(isolate());
    v8::Local<v8::Context> const entered = context();
    v8::Context::Scope const scope(entered);
    LimitedRun const run(limits_);
    v8::TryCatch const capture(isolate());
    if (kx::installLibrary(*record_, entered)) return true;
    error =
        reportException(capture, KxJsFailure::Kind::RUN_ERROR, {v8::Message::kNoScriptIdInfo, 0});
    return false;
}

void InProcessHost::setMemoryLimit(std::size_t bytes) {
    if (isOnItsThread()) record_->setMemoryLimit(bytes);
}

void InProcessHost::reset(Variables& variables, CompiledScripts& scripts) {
    if (isOnItsThread()) forgetFailure();
    bool const isUntouched = isContextDeferred_ && variables.empty();
    if (isUsable() && !isUntouched) deleteGlobals();
    std::list<HostResources> resources(1);
    resources.front().scripts.reserve(scripts.size());
    // Nothing fails from here on.
    for (auto& script : scripts) resources.front().scripts.push_back(std::move(script));
    scripts.clear();  // keeps its capacity: the next scripts are as many
    resources.front().variables = std::exchange(variables, {});
    release(std::move(resources));
}

void InProcessHost::deleteGlobals() {
    std::u16string deletions;
    for (auto const& [key, variable] : variables_) {
        deletions.append(u"delete ").append(key).append(u";\n");
    }
    std::u16string ignored;
    std::unique_ptr<CompiledScript> const script = compile(deletions, ignored);
    if (script != nullptr) declareHarmless(static_cast<HostScript const&>(*script));
    // The script may call setters that scripts have defined: those are not to run when refused.
    if (script != nullptr && !limits_.isRefused()) (void)run(*script, ignored);
}

void InProcessHost::releaseAll(Variables variables, CompiledScripts scripts) noexcept {
    HostResources& resources = lastResources_.front();
    resources.variables = std::move(variables);
    resources.scripts = std::move(scripts);
    resources.globalTemplate = std::move(globalTemplate_);
    resources.context = std::move(context_);
    release(std::move(lastResources_));
}

void InProcessHost::release(std::list<HostResources> resources) noexcept {
    ++generation_;
    deferred_.forgetVariables();
    resources.front().carriers = std::exchange(carriers_, Carriers());
    record_->release(std::move(resources));
}

}  // namespace kx
