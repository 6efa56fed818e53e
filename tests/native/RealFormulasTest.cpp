// How many formulas as people write them need no V8.
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "../convert/RealFormulas.h"
#include "../support/Utf8.h"
#include "convert/Converter.h"
#include "expression/Parser.h"
#include "host/ScriptHost.h"
#include "library/Catalogues.h"
#include "native/Effects.h"
#include "native/Program.h"

namespace {

std::set<std::u16string> catalogueNames() {
    std::set<std::u16string> names;
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) names.insert(function.getName());
    }
    return names;
}

/// Whether `source` calls functions, and only those of the catalogues and of JavaScript.
bool callsKnownFunctions(std::u16string const& source) {
    static auto const names = catalogueNames();
    static std::regex const call(R"('[^']*'|"[^"]*"|(\.?)([A-Za-z_]\w*)\s*\()");
    std::string const text = kx::test::toUtf8(source);
    bool calls = false;
    for (std::sregex_iterator i(text.begin(), text.end(), call), end; i != end; ++i) {
        std::string const ascii = (*i)[2];
        std::u16string const name(ascii.begin(), ascii.end());
        if (name.empty()) continue;  // a text
        bool const isMember = (*i)[1].length() > 0;
        if (!(isMember ? kx::isHarmlessMember(name) : names.contains(name))) return false;
        calls = true;
    }
    return calls;
}

bool needsNoV8(std::u16string const& source) {
    auto const parsed = kx::parseExpression(source);
    auto const* const expression = std::get_if<kx::Expression>(&parsed);
    if (expression == nullptr) return false;
    std::set<std::u16string_view> callees;
    std::set<std::u16string_view> names;
    for (kx::Node const& node : expression->nodes()) {
        if (node.kind == kx::NodeKind::name) names.insert(expression->text(node));
        if (node.kind == kx::NodeKind::call)
            callees.insert(expression->text(expression->child(node, 0)));
    }
    std::vector<std::u16string_view> variables;
    for (auto const name : names) {
        if (!callees.contains(name) && name != u"Math") variables.push_back(name);
    }
    return kx::Program::make(*expression, {variables, true}).has_value();
}

TEST(RealFormulas, mostlyNeedNoV8) {
    ScriptHost host;
    host.host.setNativeEvaluation(false);
    std::size_t known = 0;
    std::size_t native = 0;
    for (std::u16string const& formula : readRealFormulas()) {
        std::u16string const source = Converter::_convert(formula.c_str());
        if (!callsKnownFunctions(source) || host.parse(source) == -1) continue;
        ++known;
        if (needsNoV8(source)) ++native;
    }
    RecordProperty("known", std::to_string(known));
    RecordProperty("native", std::to_string(native));
    EXPECT_GT(known, 400U);
    EXPECT_GT(native * 100, known * 85);
}

}  // namespace
