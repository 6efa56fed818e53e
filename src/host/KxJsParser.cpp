// The life of a script host: its engine, its context, the built-in functions.
#include "host/KxJsParser.h"

#include <list>
#include <utility>

#include "engine/InterruptibleBuiltins.h"
#include "engine/PersistentHandle.h"
#include "engine/Text.h"
#include "engine/V8Compat.h"
#include "host/HostEngine.h"
#include "host/LibraryScript.h"
#include "host/ScriptRun.h"

KxJsParser::KxJsParser() : _mEngine(std::make_unique<kx::HostEngine>()) { createContext(); }

// The variables' globals go with the context. Deleting them would run setters that a script has put
// in their places.
KxJsParser::~KxJsParser() { disposeGlobalContext(); }

void KxJsParser::createContext() {
    if (!_mEngine->isUsable()) return;
    v8::Isolate* const isolate = _mEngine->isolate();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::ObjectTemplate> const shape = v8::ObjectTemplate::New(isolate);
    shape->SetInternalFieldCount(1);
    kx::v8compat::setReadOnlyAccessor(isolate, shape, kx::toEngineString(isolate, _mAccessorName),
                                      kx::Carriers::accessorGetter);
    _mGlobalTemplate = kx::makePersistent(_mEngine->record().handles(), shape);
    v8::Local<v8::Context> context = v8::Context::New(isolate, kx::interruptibleBuiltins(), shape);
    // Where no script can run now: the stack is nearly used up, or the application is ending one.
    if (context.IsEmpty()) context = v8::Context::New(isolate, nullptr, shape);
    if (context.IsEmpty()) return;
    kx::Carriers::leaveGlobalEmpty(context);
    // Newer engines always offer it, and so does an engine that the application has started.
    if (_mEngine->record().isOwn()) {
        v8::Local<v8::String> const name = kx::toEngineString(isolate, u"WebAssembly");
        [[maybe_unused]] auto const isDeleted = context->Global()->Delete(context, name);
    }
    _mContext = kx::makePersistent(_mEngine->record().handles(), context);
}

void KxJsParser::disposeGlobalContext() {
    std::list<kx::HostRemains> remains = _mEngine->lastRemains();
    remains.front().variables = std::exchange(_mVariables, {});
    remains.front().scripts = std::move(_mVecOfCompiledScripts);
    remains.front().globalTemplate = std::move(_mGlobalTemplate);
    remains.front().context = std::move(_mContext);
    _mEngine->release(std::move(remains));
}

void KxJsParser::initialize() {
    if (!_mEngine->isUsable() || _mContext == nullptr) return;
    v8::Isolate* const isolate = _mEngine->isolate();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::Context> const context = _mContext->get(isolate);
    v8::Context::Scope const entered(context);
    _mLastFailure.reset();
    kx::ScriptRun const run(*_mEngine);
    _mEngine->countScript();
    v8::TryCatch capture(isolate);
    if (kx::installLibrary(_mEngine->record(), context)) return;
    std::u16string const ignored =
        reportException(capture, KxJsFailure::Kind::RUN_ERROR, {v8::Message::kNoScriptIdInfo, 0});
}

void KxJsParser::reset() {
    clearVariables();
    clearVecOfCompiledScripts();
}

void KxJsParser::setTimeLimit(std::chrono::milliseconds limit) { _mEngine->setTimeLimit(limit); }

void KxJsParser::setMemoryLimit(std::size_t bytes) {
    if (_mEngine->isUsable()) _mEngine->record().setMemoryLimit(bytes);
}

KxJsFailure const* KxJsParser::lastFailure() const { return _mLastFailure.get(); }

void KxJsParser::terminate() { _mEngine->control().requestEnd(kx::EndReason::terminated); }
