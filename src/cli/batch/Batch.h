#pragma once

#include <map>
#include <string>

#include "cli/batch/CellType.h"
#include "cli/formula/Limits.h"
#include "cli/io/Errors.h"

namespace kx {

/// What to do with a CSV file.
struct BatchOptions {
    bool isJavaScript = false;  ///< the formula is not to be converted
    std::string formula;
    std::string input;                  ///< a file; empty: standard input
    std::string output;                 ///< a file; empty: standard output
    std::string resultName = "RESULT";  ///< header of the column that is added
    char delimiter = ',';
    std::map<std::string, CellType> types;  ///< by header; the others follow from the cells
    Limits limits;                          ///< the time limit is that of all records together
};

/// Evaluates a formula for every record of a CSV file and writes the file with a column of results.
/// Records that fail are reported on standard error. Throws UsageError and WorkError.
ExitStatus runBatch(BatchOptions const& options);

}  // namespace kx
