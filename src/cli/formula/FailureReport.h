#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "cli/formula/FormulaRun.h"
#include "host/KxJsFailure.h"

namespace kx {

/// The line that a formula failed in, ready to be marked.
struct FailedLine {
    bool isTyped = true;  ///< a line of the formula as it was typed, or else of its JavaScript
    std::size_t number = 1;
    std::u16string text;
    std::u16string marks;  ///< carets under the mistake when printed below the text
};

/// Where `formula` failed; nothing where no place is known. The place is one in the formula as it
/// was typed wherever that is certain.
std::optional<FailedLine> failedLine(std::u16string const& formula, FormulaRun const& run,
                                     KxJsFailure const* failure);

/// What to show for a run that has failed: line, message, source line and carets as in the
/// library's error texts, in terms of the formula as it was typed.
std::u16string failureReport(std::u16string const& formula, FormulaRun const& run,
                             KxJsFailure const* failure);

}  // namespace kx
