#pragma once

#include <string>

#include "host/KxJsParser.h"

namespace kx {

/// The outcome of one formula.
struct FormulaRun {
    std::u16string javaScript;  ///< the source that ran
    std::u16string result;
    std::u16string errorText;
    bool hasFailed = false;

    /// A run can have both a result and an error text ("Not A Number").
    bool hasResult() const { return !hasFailed || !result.empty(); }
};

/// Converts `formula`, unless it is JavaScript, and runs it.
FormulaRun runFormula(KxJsParser& parser, std::u16string const& formula, bool isJavaScript);

}  // namespace kx
