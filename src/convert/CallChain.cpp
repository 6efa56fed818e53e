#include "convert/CallChain.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "convert/PatternAnalysis.h"
#include "convert/RuleTables.h"

namespace kx {

void CallChain::add(std::u16string_view pattern, std::u16string_view replacement) {
    if (isFull()) throw std::length_error("too many rules in a chain");
    std::size_t const number = steps.size();
    Step step{Rule(pattern, replacement), {}};
    auto const names = calledNames(step.rule.pattern);
    if (!names) {
        always.add(number);
    } else {
        std::u16string const name(names->front().begin(), names->front().end());
        bool const restoresSpelling = pattern == name + std::u16string(callTailPattern) &&
                                      replacement == name + std::u16string(callTail);
        for (std::string const& called : *names) {
            index.add(called, number, restoresSpelling);
            step.nameLengths.push_back(called.size());
        }
        auto& lengths = step.nameLengths;
        lengths.erase(std::unique(lengths.begin(), lengths.end()), lengths.end());
    }
    steps.push_back(std::move(step));
}

}  // namespace kx
