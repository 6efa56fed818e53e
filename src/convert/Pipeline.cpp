#include "convert/Pipeline.h"

#include <algorithm>
#include <string>

#include "convert/RuleTables.h"
#include "convert/WhiteSpaceFolding.h"
#include "library/Catalogues.h"

namespace kx {

namespace {

void append(std::vector<RuleText>& to, std::span<RegexRule const> rules) {
    for (RegexRule const& rule : rules) {
        to.push_back({std::u16string(rule.pattern), std::u16string(rule.replacement)});
    }
}

void append(std::vector<RuleText>& to, std::vector<RuleText> const& rules) {
    to.insert(to.end(), rules.begin(), rules.end());
}

void appendBuiltIns(std::vector<RuleText>& to) {
    append(to, spellingRules(buildMathFunctions()));
    append(to, spellingRules(buildStringFunctions()));
    append(to, spellingRules(buildMiscFunctions()));
}

FunctionPass passOf(std::span<RegexRule const> rules) {
    std::vector<RuleText> texts;
    append(texts, rules);
    return FunctionPass(texts);
}

}  // namespace

FunctionPass::FunctionPass(std::span<RuleText const> rules) {
    while (!rules.empty()) {
        std::size_t const count = std::min(rules.size(), CallChain::kMaxRules);
        chains_.emplace_back(rules.first(count));
        rules = rules.subspan(count);
    }
}

void FunctionPass::apply(Workspace& work) const {
    for (CallChain const& chain : chains_) chain.apply(work);
}

std::vector<RuleText> spellingRules(std::vector<KxJsFunction> const& catalogue) {
    std::vector<RuleText> rules;
    for (KxJsFunction const& function : catalogue) {
        if (!function.isComplete()) continue;
        std::u16string const& name = function.getName();
        rules.push_back(
            {name + std::u16string(kCallTailPattern), name + std::u16string(kCallTail)});
    }
    return rules;
}

// The passes are never destroyed: a thread may convert while the process ends.

OperatorChain const& operatorPass() {
    static auto const& chain = *new OperatorChain(kOperatorSteps);
    return chain;
}

FunctionPass const& mathPass() {
    static auto const& pass = *new FunctionPass(passOf(kMathRules));
    return pass;
}

FunctionPass const& miscPass() {
    static auto const& pass = *new FunctionPass(passOf(kMiscRules));
    return pass;
}

FunctionPass const& stringPass() {
    static auto const& pass = *new FunctionPass(passOf(kStringRules));
    return pass;
}

FunctionPass const& spellingPass() {
    static auto const& pass = *[] {
        std::vector<RuleText> names;
        appendBuiltIns(names);
        return new FunctionPass(names);
    }();
    return pass;
}

FunctionPass const& functionPasses() {
    static auto const& pass = *[] {
        std::vector<RuleText> all;
        append(all, kMathRules);
        append(all, kMiscRules);
        append(all, kStringRules);
        appendBuiltIns(all);
        return new FunctionPass(all);
    }();
    return pass;
}

void convert(Workspace& work) {
    operatorPass().apply(work);
    functionPasses().apply(work);
    work.steps += work.text.size();
    foldWhiteSpace(work.text);
}

}  // namespace kx
