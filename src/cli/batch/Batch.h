#pragma once

#include <map>
#include <string>

#include "cli/batch/CellType.h"
#include "cli/formula/FormulaReader.h"
#include "cli/formula/Limits.h"
#include "cli/io/Errors.h"

namespace kx {

/// The job: formula, files and the form of the CSV.
struct BatchOptions {
    LanguageOptions language;
    std::string formula;
    std::string input;                  ///< a file; empty: standard input
    std::string output;                 ///< a file; empty: standard output
    std::string resultName = "RESULT";  ///< header of the new column
    char delimiter = ',';
    std::map<std::string, CellType> types;  ///< by header; other types follow from the cells
    Limits limits;                          ///< the time limit holds for all records together
};

/// Evaluates a formula for every record of a CSV file and writes the file with a column of results.
/// Records that fail are reported on standard error. Throws UsageError and WorkError.
ExitStatus runBatch(BatchOptions const& options);

}  // namespace kx
