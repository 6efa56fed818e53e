#include "host/KeyNames.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <variant>

#include "expression/Parser.h"
#include "library/Catalogues.h"

namespace kx {

namespace {

using namespace std::string_view_literals;

/// Globals of any known version of V8, what objects inherit, and what the prelude defines.
constexpr std::array kGlobals = {
    u"AggregateError"sv,
    u"Array"sv,
    u"ArrayBuffer"sv,
    u"AsyncDisposableStack"sv,
    u"Atomics"sv,
    u"BigInt"sv,
    u"BigInt64Array"sv,
    u"BigUint64Array"sv,
    u"Boolean"sv,
    u"DataView"sv,
    u"Date"sv,
    u"DisposableStack"sv,
    u"Error"sv,
    u"EvalError"sv,
    u"FinalizationRegistry"sv,
    u"Float16Array"sv,
    u"Float32Array"sv,
    u"Float64Array"sv,
    u"Function"sv,
    u"Infinity"sv,
    u"Int16Array"sv,
    u"Int32Array"sv,
    u"Int8Array"sv,
    u"Intl"sv,
    u"Iterator"sv,
    u"JSON"sv,
    u"Map"sv,
    u"Math"sv,
    u"NaN"sv,
    u"Number"sv,
    u"Object"sv,
    u"Promise"sv,
    u"Proxy"sv,
    u"RangeError"sv,
    u"ReferenceError"sv,
    u"Reflect"sv,
    u"RegExp"sv,
    u"Set"sv,
    u"SharedArrayBuffer"sv,
    u"String"sv,
    u"SuppressedError"sv,
    u"Symbol"sv,
    u"SyntaxError"sv,
    u"Temporal"sv,
    u"TypeError"sv,
    u"URIError"sv,
    u"Uint16Array"sv,
    u"Uint32Array"sv,
    u"Uint8Array"sv,
    u"Uint8ClampedArray"sv,
    u"WeakMap"sv,
    u"WeakRef"sv,
    u"WeakSet"sv,
    u"WebAssembly"sv,
    u"__defineGetter__"sv,
    u"__defineSetter__"sv,
    u"__lookupGetter__"sv,
    u"__lookupSetter__"sv,
    u"__proto__"sv,
    u"arguments"sv,
    u"console"sv,
    u"constructor"sv,
    u"decodeURI"sv,
    u"decodeURIComponent"sv,
    u"encodeURI"sv,
    u"encodeURIComponent"sv,
    u"escape"sv,
    u"eval"sv,
    u"gc"sv,
    u"globalThis"sv,
    u"hasOwnProperty"sv,
    u"isFinite"sv,
    u"isNaN"sv,
    u"isPrototypeOf"sv,
    u"newToStringFunctionProto"sv,
    u"oldToStringFunctionProto"sv,
    u"ouraccessor"sv,
    u"parseFloat"sv,
    u"parseInt"sv,
    u"propertyIsEnumerable"sv,
    u"toLocaleString"sv,
    u"toString"sv,
    u"undefined"sv,
    u"unescape"sv,
    u"valueOf"sv,
};

std::unordered_set<std::u16string> reservedNames() {
    std::unordered_set<std::u16string> names;
    for (std::u16string_view const name : kGlobals) names.emplace(name);
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) names.insert(function.getName());
    }
    return names;
}

}  // namespace

bool isPlainKey(std::u16string_view key) {
    // Never destroyed: hosts may be used until the end.
    static auto const& reserved = *new std::unordered_set<std::u16string>(reservedNames());
    if (key.find(u"___") != std::u16string_view::npos) return false;
    auto const parsed = parseExpression(key);
    auto const* expression = std::get_if<Expression>(&parsed);
    return expression != nullptr && expression->root().kind == NodeKind::name &&
           expression->text(expression->root()) == key && !reserved.contains(std::u16string(key));
}

}  // namespace kx
