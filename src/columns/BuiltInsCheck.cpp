#include "columns/BuiltInsCheck.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "columns/NameMeaning.h"
#include "engine/Text.h"
#include "library/Catalogues.h"

namespace kx {

namespace {

/// What the built-in functions use of V8 by name.
constexpr std::array kEngineNames = {u"eval",    u"isFinite", u"isNaN",  u"Math",   u"Number",
                                     u"Boolean", u"parseInt", u"String", u"RegExp", u"parseFloat"};

/// The names of the built-in functions, then kEngineNames.
std::vector<std::u16string> allNames() {
    std::vector<std::u16string> names;
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) names.push_back(function.getName());
    }
    names.insert(names.end(), kEngineNames.begin(), kEngineNames.end());
    return names;
}

bool isGetter(v8::Local<v8::Context> context, std::u16string const& name) {
    return context->Global()
        ->HasRealNamedCallbackProperty(context, toV8Name(v8::Isolate::GetCurrent(), name))
        .FromMaybe(true);
}

bool isFunctionOfAnotherScript(v8::Local<v8::Value> value) {
    return value->IsFunction() &&
           value.As<v8::Function>()->ScriptId() != v8::UnboundScript::kNoScriptId;
}

}  // namespace

bool areBuiltInsUntouched(v8::Local<v8::Context> context, int libraryId) {
    static auto const& names = *new std::vector(allNames());  // hosts may be used at exit
    v8::HandleScope const handles(v8::Isolate::GetCurrent());
    v8::TryCatch const ignored(v8::Isolate::GetCurrent());
    // A getter would show that the names are read.
    if (std::any_of(names.begin(), names.end(),
                    [&](auto const& name) { return isGetter(context, name); })) {
        return false;
    }
    auto const values = unshadowedValues(context, names);
    if (!values) return false;
    std::size_t const catalogueSize = names.size() - kEngineNames.size();
    for (std::size_t i = 0; i < names.size(); ++i) {
        bool const isAsMade = i < catalogueSize ? isFunctionOf((*values)[i], libraryId, names[i])
                                                : !isFunctionOfAnotherScript((*values)[i]);
        if (!isAsMade) return false;
    }
    return true;
}

}  // namespace kx
