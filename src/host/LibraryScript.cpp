#include "host/LibraryScript.h"

#include <stdexcept>
#include <vector>

#include "host/Text.h"
#include "library/Catalogues.h"
#include "library/Prelude.h"

namespace kx {

namespace {

void append(std::u16string& text, std::vector<KxJsFunction> const& catalogue) {
    for (KxJsFunction const& function : catalogue) {
        if (function.isComplete()) text += function.toJavaScript();
    }
}

v8::Local<v8::UnboundScript> compile(v8::Isolate* isolate) {
    v8::Local<v8::UnboundScript> script;
    v8::ScriptCompiler::Source source(toEngineString(isolate, libraryText()));
    if (!v8::ScriptCompiler::CompileUnboundScript(isolate, &source).ToLocal(&script)) {
        throw std::logic_error("the built-in functions do not compile");
    }
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
    static std::u16string const text =
        assembleLibrary(buildMathFunctions(), buildStringFunctions(), buildMiscFunctions());
    return text;
}

void installLibrary(IsolateRecord& record, v8::Local<v8::Context> context) {
    v8::Isolate* const isolate = record.isolate();
    v8::TryCatch const discarded(isolate);
    auto& shared = record.libraryScript();
    if (shared == nullptr) shared = makePersistent(isolate, compile(isolate));
    [[maybe_unused]] auto const result = shared->get(isolate)->BindToCurrentContext()->Run(context);
}

}  // namespace kx
