#include "convert/OperatorChain.h"

#include <stdexcept>

#include "convert/OperatorReplacement.h"
#include "convert/PatternAnalysis.h"
#include "convert/Rewriting.h"

namespace kx {

OperatorChain::OperatorChain(std::span<OperatorStep const> table) {
    if (table.size() > RuleMask::kCapacity) throw std::length_error("too many steps in a chain");
    for (OperatorStep const& line : table) {
        std::size_t const number = steps_.size();
        Step& step = steps_.emplace_back();
        std::vector<Word> words;
        if (line.kind == OperatorStep::Kind::regex) {
            step.rule.emplace(line.from, line.to);
            words = necessaryWords(step.rule->pattern, WordFilter::kMaxWordLength);
        } else {
            step.op = line.from;
            step.replacement = line.to;
            Word& word = words.emplace_back();
            for (char16_t const unit : line.from) word.push_back(SymbolSet{}.set(symbolOf(unit)));
        }
        if (words.empty()) always_.add(number);
        for (Word const& word : words) filter_.add(word, number);
    }
}

void OperatorChain::apply(Workspace& work) const {
    RuleMask steps = always_;
    steps |= filter_.rulesIn(work.text, 0, work.steps);
    for (std::size_t i = steps.nextFrom(0); i < steps_.size(); i = steps.nextFrom(i + 1)) {
        std::size_t const changedFrom = applyStep(steps_[i], work);
        if (changedFrom != kNowhere) steps |= filter_.rulesIn(work.text, changedFrom, work.steps);
    }
}

std::size_t OperatorChain::applyStep(Step const& step, Workspace& work) {
    if (step.rule) return applyEverywhere(*step.rule, nullptr, work);
    return OperatorReplacement(work).apply(step.op, step.replacement);
}

}  // namespace kx
