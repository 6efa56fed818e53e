#include "host/KeyNames.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <variant>

#include "engine/GlobalNames.h"
#include "expression/Parser.h"
#include "library/Catalogues.h"

namespace kx {

namespace {

/// What the prelude defines, and the member of carriers.
constexpr auto kOwnNames = std::to_array<std::u16string_view>({
    u"newToStringFunctionProto",
    u"oldToStringFunctionProto",
    u"ouraccessor",
});

std::unordered_set<std::u16string> reservedNames() {
    std::unordered_set<std::u16string> names;
    for (std::u16string_view const name : kGlobalNames) names.emplace(name);
    for (std::u16string_view const name : kOwnNames) names.emplace(name);
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
