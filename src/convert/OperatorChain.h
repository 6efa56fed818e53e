#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "convert/Rule.h"
#include "convert/RuleTables.h"
#include "convert/WordFilter.h"
#include "convert/Workspace.h"

namespace kx {

/// The steps of the operator pass, applied one after the other. A step is skipped if none of its
/// words occurs in the text. After a step has changed the text, this is determined again.
class OperatorChain {
  public:
    /// Throws std::invalid_argument if a rule is not supported, std::length_error if there are too
    /// many steps for a `RuleMask` or too many words for a `WordFilter`.
    explicit OperatorChain(std::span<OperatorStep const> table);

    void apply(Workspace& work) const;

  private:
    struct Step {
        std::u16string op;
        std::u16string replacement;
        std::optional<Rule> rule;  ///< in place of the operator
    };

    static std::size_t applyStep(Step const& step, Workspace& work);

    std::vector<Step> steps_;
    WordFilter filter_;
    RuleMask always_;  ///< the steps that have no words
};

}  // namespace kx
