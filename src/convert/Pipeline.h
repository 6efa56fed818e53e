#pragma once

#include <span>
#include <vector>

#include "convert/CallChain.h"
#include "convert/OperatorChain.h"
#include "convert/WhiteSpaceFolding.h"
#include "library/KxJsFunction.h"

/// The passes of the conversion, compiled. Each is made at its first use, once for the process,
/// and only read from then on, by any number of threads.
namespace kx {

/// Regex rules in order, as many chains of them as it takes.
class CallPass {
  public:
    explicit CallPass(std::span<RuleText const> rules);

    template <class Meter>
    void apply(Workspace& work, Meter& meter) const {
        for (CallChain const& chain : chains) chain.apply(work, meter);
    }

  private:
    std::vector<CallChain> chains;
};

/// The rules of every complete record of a catalogue: the name, in any case and with white space
/// before the parenthesis, is brought to the record's spelling, without white space.
std::vector<RuleText> spellingRules(std::vector<KxJsFunction> const& catalogue);

OperatorChain const& operatorPass();
CallPass const& mathPass();
CallPass const& miscPass();
CallPass const& stringPass();
CallPass const& spellingPass();    ///< the catalogues' names: mathematical, string, miscellaneous
CallPass const& functionPasses();  ///< the four above in the order of the conversion, as one

/// The whole conversion of the workspace's text.
template <class Meter>
void convert(Workspace& work, Meter& meter) {
    operatorPass().apply(work, meter);
    functionPasses().apply(work, meter);
    foldWhiteSpace(work.text, meter);
}

}  // namespace kx
