#include "host/LibraryScript.h"

#include <memory>
#include <mutex>
#include <vector>

#include "engine/Text.h"
#include "library/Catalogues.h"
#include "library/Prelude.h"

namespace kx {

namespace {

void append(std::u16string& text, std::vector<KxJsFunction> const& catalogue) {
    for (KxJsFunction const& function : catalogue) {
        if (function.isComplete()) text += function.toJavaScript();
    }
}

/// The compiled form of the built-in functions, which isolates share: reading it is faster than
/// compiling the text.
class CodeCache {
  public:
    /// Never destroyed: isolates may be made while static objects are destroyed.
    static CodeCache& instance() {
        static auto* const cache = new CodeCache;
        return *cache;
    }

    /// Null until an isolate has made it. V8 reads it in place, so it never changes.
    std::unique_ptr<v8::ScriptCompiler::CachedData> find() {
        std::lock_guard const lock(mutex_);
        if (data_ == nullptr) return nullptr;
        return std::make_unique<v8::ScriptCompiler::CachedData>(data_->data, data_->length);
    }

    /// Keeps the compiled form, from the second isolate on: most processes have one isolate, and no
    /// other would use it.
    void offer(v8::Local<v8::UnboundScript> script) {
        std::lock_guard const lock(mutex_);
        if (++offers_ == 2) data_.reset(v8::ScriptCompiler::CreateCodeCache(script));
    }

  private:
    std::mutex mutex_;  // guards everything below
    int offers_ = 0;
    std::unique_ptr<v8::ScriptCompiler::CachedData> data_;
};

/// Empty where a limit ends the compilation, or the stack is used up.
v8::Local<v8::UnboundScript> compile(v8::Isolate* isolate) {
    using Compiler = v8::ScriptCompiler;
    std::unique_ptr<Compiler::CachedData> cached = CodeCache::instance().find();
    auto const how = cached == nullptr ? Compiler::kNoCompileOptions : Compiler::kConsumeCodeCache;
    // Owns the cached data. With other settings V8 rejects it, and compiles.
    Compiler::Source source(toV8String(isolate, libraryText()), cached.release());
    v8::Local<v8::UnboundScript> script;
    if (!Compiler::CompileUnboundScript(isolate, &source, how).ToLocal(&script)) return script;
    if (how == Compiler::kNoCompileOptions) CodeCache::instance().offer(script);
    return script;
}

}  // namespace

std::u16string assembleLibrary(std::vector<KxJsFunction> const& math,
                               std::vector<KxJsFunction> const& string,
                               std::vector<KxJsFunction> const& misc) {
    std::u16string text;
    append(text, math);
    append(text, string);
    for (std::u16string const& statement : buildPrelude()) text += statement;
    append(text, misc);
    return text;
}

std::u16string const& libraryText() {
    // Never destroyed: hosts may be made until the end of the process.
    static auto const& text = *new std::u16string(
        assembleLibrary(buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()));
    return text;
}

bool installLibrary(IsolateRecord& record, v8::Local<v8::Context> context) {
    v8::Isolate* const isolate = record.isolate();
    auto& shared = record.libraryScript();
    if (shared == nullptr) shared = makePersistent(record.handles(), compile(isolate));
    if (shared == nullptr) return false;
    return !shared->get(isolate)->BindToCurrentContext()->Run(context).IsEmpty();
}

}  // namespace kx
