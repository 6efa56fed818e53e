#include "convert/OperatorChain.h"

#include <stdexcept>

#include "convert/PatternAnalysis.h"

namespace kx {

OperatorChain::OperatorChain(std::span<OperatorStep const> table) {
    if (table.size() > RuleMask::capacity) throw std::length_error("too many steps in a chain");
    for (OperatorStep const& line : table) {
        std::size_t const number = steps.size();
        Step& step = steps.emplace_back();
        std::vector<Word> words;
        if (line.kind == OperatorStep::Kind::regex) {
            step.rule.emplace(line.from, line.to);
            words = necessaryWords(step.rule->pattern, WordFilter::maxWordLength);
        } else {
            step.op = line.from;
            step.replacement = line.to;
            Word& word = words.emplace_back();
            for (char16_t const unit : line.from) word.push_back(SymbolSet{}.set(symbolOf(unit)));
        }
        if (words.empty()) always.add(number);
        for (Word const& word : words) filter.add(word, number);
    }
}

}  // namespace kx
