#pragma once

#include <span>
#include <vector>

#include "convert/CallChain.h"
#include "convert/OperatorChain.h"
#include "convert/RuleTables.h"
#include "library/KxJsFunction.h"

/// The passes of the conversion, compiled. Each is made at its first use, once for the process,
/// and only read from then on, by any number of threads.
namespace kx {

/// Regex rules in order. Chains are limited in length; a list is as many of them as it takes.
class RuleList {
  public:
    void add(std::span<RegexRule const> rules);

    /// Appends the rule of every complete record: the name, in any case and with white space
    /// before the parenthesis, is brought to the record's spelling, without white space.
    void addSpellingOf(std::vector<KxJsFunction> const& catalogue);

    template <class Meter>
    void apply(Workspace& work, Meter& meter) const {
        for (CallChain const& chain : chains) chain.apply(work, meter);
    }

  private:
    void add(std::u16string_view pattern, std::u16string_view replacement);

    std::vector<CallChain> chains;
};

OperatorChain const& operatorPass();
RuleList const& mathPass();
RuleList const& miscPass();
RuleList const& stringPass();
RuleList const& spellingPass();    ///< the catalogues' names: mathematical, string, miscellaneous
RuleList const& functionPasses();  ///< the four above in the order of the conversion, as one list
RuleList const& foldPass();

/// The whole conversion of the workspace's text.
template <class Meter>
void convert(Workspace& work, Meter& meter) {
    operatorPass().apply(work, meter);
    functionPasses().apply(work, meter);
    foldPass().apply(work, meter);
}

}  // namespace kx
