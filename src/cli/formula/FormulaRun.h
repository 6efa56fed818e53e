#pragma once

#include <string>

#include "host/KxJsParser.h"

namespace kx {

/// What came of one formula.
struct FormulaRun {
    std::u16string javaScript;  ///< what was run
    std::u16string result;
    std::u16string errorText;
    bool hasFailed = false;

    /// A run can have both a result and an error text ("Not A Number").
    bool hasResult() const { return !hasFailed || !result.empty(); }
};

/// Converts `formula` unless it is JavaScript already, and runs it.
FormulaRun runFormula(KxJsParser& parser, std::u16string const& formula, bool isJavaScript);

}  // namespace kx
