#include "convert/CallChain.h"

#include <algorithm>
#include <stdexcept>

#include "convert/PatternAnalysis.h"
#include "convert/Rewriting.h"
#include "convert/RuleTables.h"

namespace kx {

namespace {

/// Formulas with more calls are converted as well, with more allocations.
constexpr std::size_t kUsualCalls = 16;

/// Whether all that a rule does is to write a name as it is spelled and "(" behind it.
bool restoresSpelling(RuleText const& text, std::string const& name) {
    std::u16string const spelled(name.begin(), name.end());
    return text.pattern == spelled + std::u16string(kCallTailPattern) &&
           text.replacement == spelled + std::u16string(kCallTail);
}

}  // namespace

CallChain::CallChain(std::span<RuleText const> rules) {
    if (rules.size() > kMaxRules) throw std::length_error("too many rules in a chain");
    for (RuleText const& text : rules) addStep(text);
    for (Step& step : steps_) step.rule.replacement.findCalls(index_);
}

void CallChain::addStep(RuleText const& text) {
    std::size_t const number = steps_.size();
    Step& step = steps_.emplace_back(Step{Rule(text.pattern, text.replacement), {}});
    auto const names = calledNames(step.rule.pattern);
    if (!names) {
        always_.add(number);
        return;
    }
    for (std::string const& name : *names) {
        index_.add(name, number, restoresSpelling(text, name));
        step.nameLengths.push_back(name.size());
    }
    auto& lengths = step.nameLengths;
    lengths.erase(std::unique(lengths.begin(), lengths.end()), lengths.end());
}

void CallChain::apply(Workspace& work) const {
    work.calls.clear();
    work.calls.reserve(kUsualCalls);
    work.rewrittenCalls.reserve(kUsualCalls);
    index_.collect(work.text, work.calls, work.steps);
    RuleMask rules = rulesToApply(work);
    for (std::size_t i = rules.nextFrom(0); i < steps_.size(); i = rules.nextFrom(i + 1)) {
        if (applyStep(i, work) != kNowhere) rules = rulesToApply(work);
    }
}

RuleMask CallChain::rulesToApply(Workspace& work) const {
    work.steps += work.calls.size();
    RuleMask rules = always_;
    for (Call const& call : work.calls) rules |= call.rules;
    return rules;
}

std::size_t CallChain::applyStep(std::size_t number, Workspace& work) const {
    Step const& step = steps_[number];
    if (step.nameLengths.empty()) return applyEverywhere(step.rule, &index_, work);
    Rewriting rewriting(step.rule, &index_, work);
    work.steps += work.calls.size();
    for (Call const& call : work.calls) {
        if (!call.rules.holds(number)) continue;
        std::size_t const nameEnd = nameEndBefore(work.text, call.parenthesis);
        work.steps += call.parenthesis - nameEnd;
        for (std::size_t const length : step.nameLengths) {
            if (length <= nameEnd) rewriting.offer(nameEnd - length);
        }
    }
    return rewriting.finish();
}

}  // namespace kx
