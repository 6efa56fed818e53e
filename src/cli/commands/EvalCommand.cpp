#include <string>

#include "cli/commands/Commands.h"
#include "cli/formula/FailureReport.h"
#include "cli/formula/FormulaRun.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/Output.h"
#include "cli/io/Utf8.h"
#include "host/KxJsParser.h"

namespace kx {
namespace {

void bind(KxJsParser& parser, std::vector<KxJsVariable> const& variables) {
    for (KxJsVariable const& variable : variables) {
        if (!parser.addSetVariable(variable)) {
            throw UsageError("a variable cannot have the name \"" +
                             utf8FromUtf16(variable.getKey()) + "\"");
        }
    }
}

/// Prints the result of one formula; false when it failed.
bool evaluate(KxJsParser& parser, Formula const& formula, bool javaScript) {
    FormulaRun const run = runFormula(parser, formula.text, javaScript);
    if (run.hasResult()) printLine(run.result);
    // The result is out before the error text, and before a later formula that may take long.
    flushOutput();
    if (run.hasFailed) {
        if (!formula.place.empty()) reportError(formula.place + ":");
        reportScriptError(failureReport(formula.text, run, parser.lastFailure()));
    }
    return !run.hasFailed;
}

}  // namespace

ExitStatus runEval(EvalOptions const& options) {
    KxJsParser parser;
    setLimits(parser, options.limits);
    parser.initialize();
    bind(parser, options.variables);
    bool failed = false;
    forEachFormula(options.formulas, [&](Formula const& formula) {
        if (!evaluate(parser, formula, options.javaScript)) failed = true;
    });
    flushOutput();
    return failed ? EXIT_STATUS_FAILED : EXIT_STATUS_OK;
}

}  // namespace kx
