#pragma once

#include <span>
#include <vector>

#include "convert/CallChain.h"
#include "convert/OperatorChain.h"
#include "convert/Workspace.h"
#include "library/KxJsFunction.h"

/// The passes of the conversion, compiled. Each is built at its first use, once for the process.
/// From then on any number of threads may read it.
namespace kx {

/// A pass of regex rules, in as many chains as it takes.
class FunctionPass {
  public:
    explicit FunctionPass(std::span<RuleText const> rules);

    void apply(Workspace& work) const;

  private:
    std::vector<CallChain> chains_;
};

/// A rule for every complete record of a catalogue. It writes the name before a "(" as the record
/// spells it, without white space behind: "round (" becomes "ROUND(".
std::vector<RuleText> spellingRules(std::vector<KxJsFunction> const& catalogue);

OperatorChain const& operatorPass();
FunctionPass const& mathPass();
FunctionPass const& miscPass();
FunctionPass const& stringPass();
FunctionPass const& spellingPass();  ///< of the mathematical, string and miscellaneous catalogue

/// The four function passes in the order of the conversion. One chain skips more rules than four.
FunctionPass const& functionPasses();

/// Converts the text of the workspace.
void convert(Workspace& work);

}  // namespace kx
