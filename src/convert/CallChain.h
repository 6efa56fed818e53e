#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "convert/CallIndex.h"
#include "convert/Rule.h"
#include "convert/RuleMask.h"
#include "convert/Workspace.h"

namespace kx {

/// A regex rule as text of its own.
struct RuleText {
    std::u16string pattern;
    std::u16string replacement;
};

/// A list of regex rules that are applied one after the other. Most rewrite calls of functions.
///
/// A rule for calls is applied only where one of its names stands before a "(" of the text, and
/// skipped if that is nowhere. After a rule has changed the text, this is determined again.
class CallChain {
  public:
    static constexpr std::size_t kMaxRules = RuleMask::kCapacity;

    /// Throws std::invalid_argument if a rule is not supported, std::length_error if there are more
    /// than `kMaxRules`.
    explicit CallChain(std::span<RuleText const> rules);

    void apply(Workspace& work) const;

  private:
    struct Step {
        Rule rule;
        std::vector<std::size_t> nameLengths;  ///< descending; empty: not a rule for calls
    };

    void addStep(RuleText const& text);
    RuleMask rulesToApply(Workspace& work) const;
    std::size_t applyStep(std::size_t number, Workspace& work) const;

    CallIndex index_;
    std::vector<Step> steps_;
    RuleMask always_;  ///< the rules that are not for calls
};

}  // namespace kx
