#include "convert/Pipeline.h"

#include <string>

#include "library/Catalogues.h"

namespace kx {

namespace {

RuleList listOf(std::span<RegexRule const> rules) {
    RuleList list;
    list.add(rules);
    return list;
}

void addBuiltIns(RuleList& list) {
    list.addSpellingOf(buildMathFunctions());
    list.addSpellingOf(buildStringFunctions());
    list.addSpellingOf(buildMiscFunctions());
}

}  // namespace

void RuleList::add(std::span<RegexRule const> rules) {
    for (RegexRule const& rule : rules) add(rule.pattern, rule.replacement);
}

void RuleList::addSpellingOf(std::vector<KxJsFunction> const& catalogue) {
    for (KxJsFunction const& function : catalogue) {
        if (!function.isComplete()) continue;
        std::u16string const& name = function.getName();
        add(name + std::u16string(callTailPattern), name + std::u16string(callTail));
    }
}

void RuleList::add(std::u16string_view pattern, std::u16string_view replacement) {
    if (chains.empty() || chains.back().isFull()) chains.emplace_back();
    chains.back().add(pattern, replacement);
}

OperatorChain const& operatorPass() {
    static OperatorChain const chain(operatorSteps);
    return chain;
}

RuleList const& mathPass() {
    static RuleList const list = listOf(mathRules);
    return list;
}

RuleList const& miscPass() {
    static RuleList const list = listOf(miscRules);
    return list;
}

RuleList const& stringPass() {
    static RuleList const list = listOf(stringRules);
    return list;
}

RuleList const& spellingPass() {
    static RuleList const list = [] {
        RuleList names;
        addBuiltIns(names);
        return names;
    }();
    return list;
}

RuleList const& functionPasses() {
    static RuleList const list = [] {
        RuleList all;
        all.add(mathRules);
        all.add(miscRules);
        all.add(stringRules);
        addBuiltIns(all);
        return all;
    }();
    return list;
}

RuleList const& foldPass() {
    static RuleList const list = listOf(foldRules);
    return list;
}

}  // namespace kx
