#include "columns/NameMeaning.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "engine/Text.h"

namespace kx {

namespace {

using namespace std::string_view_literals;

constexpr std::array kConstants = {u"true"sv, u"false"sv,    u"null"sv,
                                   u"NaN"sv,  u"Infinity"sv, u"undefined"sv};
constexpr std::array kStandardFunctions = {u"Boolean"sv,  u"isFinite"sv,   u"isNaN"sv, u"Number"sv,
                                           u"parseInt"sv, u"parseFloat"sv, u"String"sv};
constexpr std::array kEvaluating = {u"IIF"sv, u"COND"sv};

/// Depends on Function.prototype.toString and on all globals, which the checks do not cover.
constexpr std::u16string_view kListing = u"LISTFUNCT";

template <class List>
bool isIn(List const& list, std::u16string_view name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

}  // namespace

v8::Local<v8::Value> globalValue(v8::Local<v8::Context> context, std::u16string_view name) {
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    v8::TryCatch const ignored(isolate);
    v8::Local<v8::Value> value;
    if (!context->Global()
             ->GetRealNamedProperty(context, toV8Name(isolate, name))
             .ToLocal(&value)) {
        return v8::Undefined(isolate);
    }
    return value;
}

std::optional<std::vector<v8::Local<v8::Value>>> unshadowedValues(
    v8::Local<v8::Context> context, std::vector<std::u16string> const& names) {
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    v8::TryCatch const ignored(isolate);
    // An array of what the names stand for in a script.
    std::u16string list = u"[";
    for (std::u16string const& name : names) list.append(name).append(u",");
    list += u"]";
    v8::Local<v8::String> const text = toV8String(isolate, list);
    v8::Local<v8::Script> script;
    v8::Local<v8::Value> found;
    if (text.IsEmpty() || !v8::Script::Compile(context, text).ToLocal(&script) ||
        !script->Run(context).ToLocal(&found)) {
        return std::nullopt;
    }
    std::vector<v8::Local<v8::Value>> values(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (!found.As<v8::Array>()
                 ->Get(context, static_cast<std::uint32_t>(i))
                 .ToLocal(&values[i]) ||
            !values[i]->StrictEquals(globalValue(context, names[i]))) {
            return std::nullopt;
        }
    }
    return values;
}

bool isFunctionOf(v8::Local<v8::Value> value, int scriptId, std::u16string_view name) {
    if (!value->IsFunction()) return false;
    auto const function = value.As<v8::Function>();
    if (function->ScriptId() != scriptId || !function->GetName()->IsString()) return false;
    return fromV8String(v8::Isolate::GetCurrent(), function->GetName().As<v8::String>()) == name;
}

bool evaluatesTexts(std::u16string_view name) { return isIn(kEvaluating, name); }

NameMeaning meaningOf(v8::Local<v8::Context> context, std::u16string const& name, int libraryId) {
    constexpr int kNoScript = v8::UnboundScript::kNoScriptId;
    if (isIn(kConstants, name)) return NameMeaning::constant;
    v8::Local<v8::Value> const value = globalValue(context, name);
    if (name == u"Math") return value->IsObject() ? NameMeaning::standard : NameMeaning::unknown;
    if (isIn(kStandardFunctions, name)) {
        return isFunctionOf(value, kNoScript, name) ? NameMeaning::standard : NameMeaning::unknown;
    }
    if (name == kListing || !isFunctionOf(value, libraryId, name)) return NameMeaning::unknown;
    if (!evaluatesTexts(name)) return NameMeaning::catalogue;
    // These two give what V8's eval makes of their conditions.
    return isFunctionOf(globalValue(context, u"eval"), kNoScript, u"eval") ? NameMeaning::evaluating
                                                                           : NameMeaning::unknown;
}

}  // namespace kx
