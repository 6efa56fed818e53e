#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "cli/formula/FormulaRun.h"
#include "host/KxJsFailure.h"

namespace kx {

/// The line that a formula failed in, and its marks.
struct FailedLine {
    bool isTyped = true;  ///< the line is from the formula, not from its JavaScript
    std::size_t number = 1;
    std::u16string text;
    std::u16string marks;  ///< carets; printed below the text, they mark the error
};

/// Where `formula` failed; nothing where the place is unknown. The line comes from the formula as
/// it was typed where the place is certain there, else from its JavaScript.
std::optional<FailedLine> failedLine(std::u16string const& formula, FormulaRun const& run,
                                     KxJsFailure const* failure);

/// What went wrong, without the place.
std::u16string failureMessage(FormulaRun const& run, KxJsFailure const* failure);

/// The report of a failed run, in the form of the library's error texts: line number, message,
/// source line, carets. Line and carets are those of failedLine().
std::u16string failureReport(std::u16string const& formula, FormulaRun const& run,
                             KxJsFailure const* failure);

}  // namespace kx
