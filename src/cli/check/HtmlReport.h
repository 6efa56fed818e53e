#pragma once

#include <string>

#include "cli/check/Summary.h"
#include "translate/KxJsTranslator.h"

namespace kx {

/// A page of its own to look at: counts as bars, and all formulas to filter, with their findings
/// marked in place and what to write instead.
class HtmlReport {
  public:
    void add(std::u16string const& formula, std::size_t line, KxJsTranslator::Check const& check);
    /// The page. Call it once.
    std::string finish(Summary const& summary);

  private:
    std::string formulas_;  ///< JSON objects, separated by commas
};

}  // namespace kx
