#pragma once

#include <string>
#include <vector>

#include "cli/io/Errors.h"
#include "translate/KxJsTranslator.h"

namespace kx {

/// The job: where formulas come from and what is written.
struct CheckOptions {
    std::vector<std::string> formulas;  ///< arguments
    std::string input;                  ///< a file; empty: the arguments, or standard input
    std::string column;                 ///< of a CSV file; empty: one formula a line
    bool isCsv = false;
    bool isJson = false;
    bool isAll = false;  ///< formulas without findings are printed too
    std::string html;    ///< a file for the report; empty: none
};

/// Checks all formulas. Throws UsageError and WorkError. The status tells of formulas that do not
/// keep their meaning.
ExitStatus runCheck(CheckOptions const& options, KxJsTranslator const& translator);

}  // namespace kx
