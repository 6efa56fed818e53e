#pragma once

#include <optional>
#include <string>

#include "cli/formula/TypedPlace.h"
#include "host/KxJsParser.h"

namespace kx {

class FormulaReader;

/// The outcome of one formula.
struct FormulaRun {
    std::u16string javaScript;  ///< the source that ran
    std::u16string result;
    std::u16string errorText;
    bool hasFailed = false;
    std::optional<Span> refusedAt;  ///< the place in the formula that has no translation

    /// A run can have both a result and an error text ("Not A Number").
    bool hasResult() const { return !hasFailed || !result.empty(); }
};

/// Makes the JavaScript of `formula` and runs it.
FormulaRun runFormula(KxJsParser& parser, std::u16string const& formula,
                      FormulaReader const& reader);

}  // namespace kx
