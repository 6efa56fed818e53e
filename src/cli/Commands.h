#pragma once

#include <string>
#include <vector>

#include "cli/Errors.h"
#include "host/KxJsVariable.h"

// The commands of kxjs, one file each. Every one writes its results to standard output and returns
// the status that the program ends with. They throw UsageError and WorkError.
namespace kx {

struct EvalOptions {
    bool javaScript = false;  ///< formulas are JavaScript already
    std::vector<KxJsVariable> variables;
    std::vector<std::string> formulas;  ///< none: standard input
};
ExitStatus runEval(EvalOptions const& options);

struct ConvertOptions {
    std::vector<std::string> formulas;  ///< none: standard input
};
ExitStatus runConvert(ConvertOptions const& options);

struct ExtractOptions {
    bool javaScript = false;
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

/// The prompt: formulas from a terminal, or from the lines of standard input.
ExitStatus runRepl();

}  // namespace kx
