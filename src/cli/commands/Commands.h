#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/batch/CellType.h"
#include "cli/commands/LimitOption.h"
#include "cli/io/Errors.h"
#include "host/KxJsVariable.h"

// The commands of kxjs, one file each. Every one writes its results to standard output and returns
// the status that the program ends with. They throw UsageError and WorkError.
namespace kx {

struct EvalOptions {
    bool javaScript = false;  ///< formulas are JavaScript already
    std::vector<KxJsVariable> variables;
    Limits limits;
    std::vector<std::string> formulas;  ///< none: standard input
};
ExitStatus runEval(EvalOptions const& options);

struct BatchOptions {
    bool javaScript = false;
    std::string formula;
    std::string input;                  ///< a file; empty: standard input
    std::string output;                 ///< a file; empty: standard output
    std::string resultName = "RESULT";  ///< header of the column that is added
    char delimiter = ',';
    std::map<std::string, CellType> types;  ///< by header; the others follow from the cells
    Limits limits;                          ///< the time limit is that of all records together
};
ExitStatus runBatch(BatchOptions const& options);

struct ConvertOptions {
    std::vector<std::string> formulas;  ///< none: standard input
};
ExitStatus runConvert(ConvertOptions const& options);

struct ExtractOptions {
    bool javaScript = false;
    Limits limits;
    std::vector<std::string> formulas;  ///< none: standard input
};
ExitStatus runExtract(ExtractOptions const& options);

struct FunctionsOptions {
    std::string name;  ///< empty: the whole catalogue
};
ExitStatus runFunctions(FunctionsOptions const& options);

struct DocsOptions {
    bool examples = false;
    bool fragment = false;
    std::string file;       ///< empty: standard output
    std::string directory;  ///< not empty: one page per function there
};
ExitStatus runDocs(DocsOptions const& options);

struct ReplOptions {
    Limits limits;  ///< of each formula
};
/// The prompt: formulas from a terminal, or from the lines of standard input.
ExitStatus runRepl(ReplOptions const& options);

}  // namespace kx
