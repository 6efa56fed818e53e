#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "convert/CallIndex.h"
#include "convert/Rule.h"

namespace kx {

/// A list of regex rules, one after the other, most of which rewrite calls of functions. A rule
/// whose names do not stand before a "(" of the text cannot change it and is passed over; what a
/// rule wrote is looked through anew.
class CallChain {
  public:
    /// Appends a rule. Throws std::invalid_argument if the pattern is not supported and
    /// std::length_error if the chain is full.
    void add(std::u16string_view pattern, std::u16string_view replacement);

    bool isFull() const { return steps.size() == RuleMask::capacity; }

    template <class Meter>
    void apply(Workspace& work, Meter& meter) const {
        work.calls.clear();
        index.update(work.text, 0, work.calls, meter);
        RuleMask open = openRules(work);
        for (std::size_t i = open.nextFrom(0); i < steps.size(); i = open.nextFrom(i + 1)) {
            std::size_t const changedFrom = applyStep(i, work, meter);
            if (changedFrom == nowhere) continue;
            index.update(work.text, changedFrom, work.calls, meter);
            open = openRules(work);
        }
    }

  private:
    struct Step {
        Rule rule;
        std::vector<std::size_t> nameLengths;  ///< descending; none: the rule is not one of calls
    };

    RuleMask openRules(Workspace const& work) const {
        RuleMask open = always;
        for (Call const& call : work.calls) open |= call.rules;
        return open;
    }

    template <class Meter>
    std::size_t applyStep(std::size_t number, Workspace& work, Meter& meter) const {
        Step const& step = steps[number];
        if (step.nameLengths.empty()) return applyEverywhere(step.rule, work, meter);
        Rewriting<Meter> rewriting(step.rule, work, meter);
        meter.count(work.calls.size());
        for (Call const& call : work.calls) {
            if (!call.rules.holds(number)) continue;
            for (std::size_t const length : step.nameLengths)
                if (length <= call.nameEnd) rewriting.offer(call.nameEnd - length);
        }
        return rewriting.finish();
    }

    std::vector<Step> steps;
    CallIndex index;
    RuleMask always;
};

}  // namespace kx
