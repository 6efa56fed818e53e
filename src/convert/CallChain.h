#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "convert/CallIndex.h"
#include "convert/Rewriting.h"
#include "convert/Rule.h"

namespace kx {

/// A regex rule as text of its own.
struct RuleText {
    std::u16string pattern;
    std::u16string replacement;
};

/// A list of regex rules, one after the other, most of which rewrite calls of functions. A rule
/// whose names do not stand before a "(" of the text cannot change it and is passed over; what a
/// rule changed is looked at anew.
class CallChain {
  public:
    static constexpr std::size_t maxRules = RuleMask::capacity;

    /// Takes at most `maxRules` rules. Throws std::invalid_argument if a pattern is not supported.
    explicit CallChain(std::span<RuleText const> rules);

    template <class Meter>
    void apply(Workspace& work, Meter& meter) const {
        work.calls.clear();
        index.collect(work.text, work.calls, meter);
        work.rewrittenCalls.reserve(work.calls.capacity());
        RuleMask open = openRules(work, meter);
        for (std::size_t i = open.nextFrom(0); i < steps.size(); i = open.nextFrom(i + 1))
            if (applyStep(i, work, meter) != nowhere) open = openRules(work, meter);
    }

  private:
    struct Step {
        Rule rule;
        std::vector<std::size_t> nameLengths;  ///< descending; none: the rule is not one of calls
        LiteralCalls literalCalls;
    };

    void addStep(RuleText const& text);

    template <class Meter>
    RuleMask openRules(Workspace const& work, Meter& meter) const {
        meter.count(work.calls.size());
        RuleMask open = always;
        for (Call const& call : work.calls) open |= call.rules;
        return open;
    }

    template <class Meter>
    std::size_t applyStep(std::size_t number, Workspace& work, Meter& meter) const {
        Step const& step = steps[number];
        CallTracking const tracking{&index, &step.literalCalls};
        if (step.nameLengths.empty()) return applyEverywhere(step.rule, tracking, work, meter);
        Rewriting<Meter> rewriting(step.rule, tracking, work, meter);
        meter.count(work.calls.size());
        for (Call const& call : work.calls) {
            if (!call.rules.holds(number)) continue;
            std::size_t const nameEnd = nameEndBefore(work.text, call.parenthesis);
            meter.count(call.parenthesis - nameEnd);
            for (std::size_t const length : step.nameLengths)
                if (length <= nameEnd) rewriting.offer(nameEnd - length);
        }
        return rewriting.finish();
    }

    CallIndex index;
    std::vector<Step> steps;
    RuleMask always;
};

}  // namespace kx
