#include "columns/ColumnKernel.h"

#include <utility>

#include "engine/Text.h"
#include "text/NumberText.h"

namespace kx {

namespace {

std::u16string argumentName(std::size_t position) {
    return u"x" + decimalText(static_cast<std::int64_t>(position));
}

/// How a record's value is read from the array `name`.
std::u16string reading(Column const& column, std::u16string const& name) {
    if (column.isText()) return name + u"[i-base]";
    if (std::holds_alternative<bool const*>(column.values)) return u"(" + name + u"[i]!==0)";
    return name + u"[i]";
}

// For any other value the loop fails, and the record runs one by one: converting it may run
// scripts. The length is bounded so that the results of a block do not need memory that the same
// records would not need one by one.
constexpr std::u16string_view kStoreText =
    u"const j=i-base;"
    u"if(typeof r==='number'){numbers[j]=r;kinds[j]=0;}"
    u"else if(typeof r==='string'){text+=r;lengths[j]=r.length;kinds[j]=1;"
    u"if(text.length>100000){++i;break;}}"
    u"else if(typeof r==='boolean'){kinds[j]=r?3:2;}"
    u"else if(r===undefined){kinds[j]=4;}"
    u"else if(r===null){kinds[j]=5;}"
    u"else throw 0;";
constexpr std::u16string_view kStoreNumber =
    u"if(typeof r==='number'){numbers[i]=r;}"
    u"else if(typeof r==='object'&&r!==null||typeof r==='function')throw 0;"
    u"else numbers[i]=+r;";
constexpr std::u16string_view kStoreBoolean =
    u"if(typeof r==='object'&&r!==null||typeof r==='function')throw 0;"
    u"numbers[i]=r?1:0;";

std::u16string_view storing(ColumnResults const& results) {
    if (std::holds_alternative<double*>(results)) return kStoreNumber;
    if (std::holds_alternative<bool*>(results)) return kStoreBoolean;
    return kStoreText;
}

std::vector<std::u16string> namesOf(ColumnBindings const& bindings) {
    std::vector<std::u16string> names = bindings.evaluating;
    names.insert(names.end(), bindings.constants.begin(), bindings.constants.end());
    for (Column const* column : bindings.columns) names.push_back(column->name);
    return names;
}

std::u16string loopText(ColumnBindings const& bindings, ColumnResults const& results) {
    std::u16string call;
    std::size_t position = 0;
    auto const add = [&](std::u16string const& argument) {
        call += (call.empty() ? u"" : u",") + argument;
        ++position;
    };
    for (std::size_t i = bindings.evaluating.size() + bindings.constants.size(); i > 0; --i) {
        add(argumentName(position));
    }
    for (Column const* column : bindings.columns) add(reading(*column, argumentName(position)));
    return u"'use strict';let i=first,text='',failed=0;"
           u"try{for(;i<last;++i){const r=formula(" +
           call + u");" + std::u16string(storing(results)) +
           u"}}catch(e){failed=1;}state[0]=i;state[1]=failed;return text;";
}

/// The function of the given parameters and body. Empty where it does not compile.
v8::Local<v8::Function> compile(v8::Isolate* isolate, v8::Local<v8::Context> context,
                                std::vector<std::u16string> const& parameters,
                                std::u16string_view body) {
    v8::TryCatch const ignored(isolate);
    std::vector<v8::Local<v8::String>> names;
    names.reserve(parameters.size());
    for (std::u16string const& name : parameters) names.push_back(toV8String(isolate, name));
    v8::Local<v8::String> const text = toV8String(isolate, body);
    v8::Local<v8::Function> function;
    if (text.IsEmpty()) return {};
    v8::ScriptCompiler::Source source(text);
    if (!v8::ScriptCompiler::CompileFunction(context, &source, names.size(), names.data())
             .ToLocal(&function)) {
        return {};
    }
    return function;
}

std::u16string signatureOf(ColumnBindings const& bindings, ColumnResults const& results) {
    std::u16string signature = loopText(bindings, results);
    for (std::u16string const& name : namesOf(bindings)) signature += u'\n' + name;
    return signature;
}

}  // namespace

std::unique_ptr<ColumnKernel> ColumnKernel::make(OwnHandles& all, v8::Local<v8::Context> context,
                                                 std::u16string_view expression,
                                                 ColumnBindings const& bindings,
                                                 ColumnResults const& results) {
    v8::Isolate* const isolate = all.isolate();
    std::vector<std::u16string> loopParameters = {u"formula", u"first",   u"last",    u"base",
                                                  u"state",   u"numbers", u"lengths", u"kinds"};
    std::vector<std::u16string> const names = namesOf(bindings);
    for (std::size_t i = 0; i < names.size(); ++i) loopParameters.push_back(argumentName(i));
    auto kernel = std::make_unique<ColumnKernel>();
    std::u16string const formula = u"return (" + std::u16string(expression) + u"\n);";
    auto const add = [&](std::vector<std::u16string> const& parameters, std::u16string_view body) {
        kernel->handles_.push_back(
            makePersistent(all, compile(isolate, context, parameters, body)));
        return kernel->handles_.back() != nullptr;
    };
    bool const isCompiled = add(loopParameters, loopText(bindings, results)) &&
                            add(names, formula) &&
                            add({u"condition", u"p1", u"p2"},
                                u"if(arguments.length===0||typeof condition==='string')throw 0;"
                                u"return condition?p1:p2;") &&
                            add({u"first"},
                                u"if(arguments.length===0)throw 0;"
                                u"for(let i=0;i<arguments.length;i+=2){"
                                u"if(typeof arguments[i]==='string')throw 0;"
                                u"if(arguments[i])return arguments[i+1];}");
    if (!isCompiled) return nullptr;
    kernel->signature_ = signatureOf(bindings, results);
    return kernel;
}

bool ColumnKernel::fits(ColumnBindings const& bindings, ColumnResults const& results) const {
    return signature_ == signatureOf(bindings, results);
}

void ColumnKernel::release(HostResources& resources) noexcept {
    resources.functions = std::exchange(handles_, {});
}

}  // namespace kx
