#include "columns/ColumnGlobals.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "columns/ColumnNames.h"
#include "engine/Text.h"
#include "library/Catalogues.h"

namespace kx {

namespace {

/// What the built-in functions use of the engine by name.
constexpr std::array kEngineNames = {u"eval",    u"isFinite", u"isNaN",  u"Math",   u"Number",
                                     u"Boolean", u"parseInt", u"String", u"RegExp", u"parseFloat"};

std::vector<std::u16string> catalogueNames() {
    std::vector<std::u16string> names;
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) names.push_back(function.getName());
    }
    return names;
}

/// All of them, those of the engine last.
struct Names {
    std::vector<std::u16string> names = catalogueNames();
    std::size_t catalogueCount = names.size();
    std::u16string list;  // a script whose value is an array of what scripts find under the names

    Names() {
        names.insert(names.end(), kEngineNames.begin(), kEngineNames.end());
        for (std::u16string const& name : names) list += (list.empty() ? u"[" : u",") + name;
        list += u"]";
    }
};

}  // namespace

bool areBuiltInsUntouched(v8::Local<v8::Context> context, int libraryId) {
    static auto const& all = *new Names;  // never destroyed: hosts may be used until the end
    v8::Isolate* const isolate = context->GetIsolate();
    v8::HandleScope const handles(isolate);
    v8::TryCatch const ignored(isolate);
    // A getter in the place of a name would show that somebody looks.
    for (std::u16string const& name : all.names) {
        if (context->Global()
                ->HasRealNamedCallbackProperty(context, toEngineName(isolate, name))
                .FromMaybe(true)) {
            return false;
        }
    }
    v8::Local<v8::Script> script;
    v8::Local<v8::Value> found;
    if (!v8::Script::Compile(context, toEngineString(isolate, all.list)).ToLocal(&script) ||
        !script->Run(context).ToLocal(&found)) {
        return false;
    }
    for (std::size_t i = 0; i < all.names.size(); ++i) {
        v8::Local<v8::Value> value;
        if (!found.As<v8::Array>()->Get(context, static_cast<std::uint32_t>(i)).ToLocal(&value) ||
            !value->StrictEquals(globalValue(context, all.names[i]))) {
            return false;
        }
        bool const isOfCatalogue = i < all.catalogueCount;
        if (isOfCatalogue ? !isFunctionOf(value, libraryId, all.names[i])
                          : value->IsFunction() && value.As<v8::Function>()->ScriptId() !=
                                                       v8::UnboundScript::kNoScriptId) {
            return false;
        }
    }
    return true;
}

}  // namespace kx
