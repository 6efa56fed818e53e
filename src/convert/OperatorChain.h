#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "convert/OperatorReplacement.h"
#include "convert/Rewriting.h"
#include "convert/Rule.h"
#include "convert/RuleTables.h"
#include "convert/WordFilter.h"

namespace kx {

/// The steps of the operator pass, one after the other. A step whose words do not occur in the
/// text cannot change it and is passed over; what a step wrote is looked through anew.
class OperatorChain {
  public:
    explicit OperatorChain(std::span<OperatorStep const> table);

    template <class Meter>
    void apply(Workspace& work, Meter& meter) const {
        RuleMask open = always;
        open |= filter.rulesIn(work.text, 0, meter);
        for (std::size_t i = open.nextFrom(0); i < steps.size(); i = open.nextFrom(i + 1)) {
            std::size_t const changedFrom = applyStep(steps[i], work, meter);
            if (changedFrom != nowhere) open |= filter.rulesIn(work.text, changedFrom, meter);
        }
    }

  private:
    struct Step {
        std::u16string op;
        std::u16string replacement;
        std::optional<Rule> rule;  ///< in place of the operator
    };

    template <class Meter>
    static std::size_t applyStep(Step const& step, Workspace& work, Meter& meter) {
        if (step.rule) return applyEverywhere(*step.rule, {}, work, meter);
        return OperatorReplacement<Meter>(work, meter).apply(step.op, step.replacement);
    }

    std::vector<Step> steps;
    WordFilter filter;
    RuleMask always;
};

}  // namespace kx
