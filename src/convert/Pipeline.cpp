#include "convert/Pipeline.h"

#include <algorithm>
#include <string>

#include "convert/RuleTables.h"
#include "library/Catalogues.h"

namespace kx {

namespace {

void append(std::vector<RuleText>& to, std::span<RegexRule const> rules) {
    for (RegexRule const& rule : rules)
        to.push_back({std::u16string(rule.pattern), std::u16string(rule.replacement)});
}

void append(std::vector<RuleText>& to, std::vector<RuleText> const& rules) {
    to.insert(to.end(), rules.begin(), rules.end());
}

void appendBuiltIns(std::vector<RuleText>& to) {
    append(to, spellingRules(buildMathFunctions()));
    append(to, spellingRules(buildStringFunctions()));
    append(to, spellingRules(buildMiscFunctions()));
}

CallPass passOf(std::span<RegexRule const> rules) {
    std::vector<RuleText> texts;
    append(texts, rules);
    return CallPass(texts);
}

}  // namespace

CallPass::CallPass(std::span<RuleText const> rules) {
    while (!rules.empty()) {
        std::size_t const count = std::min(rules.size(), CallChain::maxRules);
        chains.emplace_back(rules.first(count));
        rules = rules.subspan(count);
    }
}

std::vector<RuleText> spellingRules(std::vector<KxJsFunction> const& catalogue) {
    std::vector<RuleText> rules;
    for (KxJsFunction const& function : catalogue) {
        if (!function.isComplete()) continue;
        std::u16string const& name = function.getName();
        rules.push_back({name + std::u16string(callTailPattern), name + std::u16string(callTail)});
    }
    return rules;
}

OperatorChain const& operatorPass() {
    static OperatorChain const chain(operatorSteps);
    return chain;
}

CallPass const& mathPass() {
    static CallPass const pass = passOf(mathRules);
    return pass;
}

CallPass const& miscPass() {
    static CallPass const pass = passOf(miscRules);
    return pass;
}

CallPass const& stringPass() {
    static CallPass const pass = passOf(stringRules);
    return pass;
}

CallPass const& spellingPass() {
    static CallPass const pass = [] {
        std::vector<RuleText> names;
        appendBuiltIns(names);
        return CallPass(names);
    }();
    return pass;
}

CallPass const& functionPasses() {
    static CallPass const pass = [] {
        std::vector<RuleText> all;
        append(all, mathRules);
        append(all, miscRules);
        append(all, stringRules);
        appendBuiltIns(all);
        return CallPass(all);
    }();
    return pass;
}

}  // namespace kx
