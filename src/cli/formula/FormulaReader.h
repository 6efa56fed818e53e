#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/formula/FormulaRun.h"
#include "host/KxJsParser.h"
#include "translate/KxJsTranslator.h"

namespace kx {

/// What formulas are, and how they become JavaScript.
struct LanguageOptions {
    bool isJavaScript = false;  ///< they are JavaScript already
    bool isTranslated = false;  ///< translated by their grammar, instead of converted by the rules
    bool isExact = false;       ///< translated with EXACT on
};

/// Makes the JavaScript of formulas.
class FormulaReader {
  public:
    /// `keys` are the variables that translations know in their own case.
    explicit FormulaReader(LanguageOptions const& options,
                           std::vector<std::u16string> const& keys = {});

    /// Makes translations run in the host, where formulas are translated.
    void prepare(KxJsParser& host) const;

    /// A run that has its JavaScript and is still to be made; or one that has failed.
    FormulaRun read(std::u16string const& formula) const;

  private:
    bool isJavaScript_;
    std::optional<KxJsTranslator> translator_;
};

/// "CODE: text" of all findings, one a line.
std::u16string describeFindings(std::vector<KxJsTranslator::Finding> const& findings);

}  // namespace kx
