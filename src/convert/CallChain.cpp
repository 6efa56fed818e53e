#include "convert/CallChain.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "convert/PatternAnalysis.h"
#include "convert/RuleTables.h"

namespace kx {

namespace {

/// Whether all that a rule does is to write a name as it is spelled and "(" behind it.
bool restoresSpelling(RuleText const& text, std::string const& name) {
    std::u16string const spelled(name.begin(), name.end());
    return text.pattern == spelled + std::u16string(callTailPattern) &&
           text.replacement == spelled + std::u16string(callTail);
}

LiteralCalls literalCallsOf(Replacement const& replacement, CallIndex const& index) {
    LiteralCalls calls;
    NoMeter meter;
    for (Replacement::Piece const& piece : replacement.pieces())
        index.collect(piece.literal, calls.emplace_back(), meter);
    return calls;
}

}  // namespace

CallChain::CallChain(std::span<RuleText const> rules) {
    if (rules.size() > maxRules) throw std::length_error("too many rules in a chain");
    for (RuleText const& text : rules) addStep(text);
    for (Step& step : steps) step.literalCalls = literalCallsOf(step.rule.replacement, index);
}

void CallChain::addStep(RuleText const& text) {
    std::size_t const number = steps.size();
    Step& step = steps.emplace_back(Step{Rule(text.pattern, text.replacement), {}, {}});
    auto const names = calledNames(step.rule.pattern);
    if (!names) {
        always.add(number);
        return;
    }
    for (std::string const& name : *names) {
        index.add(name, number, restoresSpelling(text, name));
        step.nameLengths.push_back(name.size());
    }
    auto& lengths = step.nameLengths;
    lengths.erase(std::unique(lengths.begin(), lengths.end()), lengths.end());
}

}  // namespace kx
