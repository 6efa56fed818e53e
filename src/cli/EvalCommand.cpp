#include <cstdint>
#include <string>

#include "cli/Commands.h"
#include "cli/FormulaSource.h"
#include "cli/Output.h"
#include "cli/Utf8.h"
#include "convert/Converter.h"
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
    std::u16string const source =
        javaScript ? formula.text : Converter::_convert(formula.text.c_str());
    std::u16string error;
    std::u16string result;
    std::int32_t const script = parser.parse(source, error);
    if (script >= 0) result = parser.execute(script, error);

    // A run can have both a result and an error text ("Not A Number").
    bool const failed = script < 0 || !error.empty();
    if (!failed || !result.empty()) printLine(result);
    // The result is out before the error text, and before a later formula that may take long.
    flushOutput();
    if (failed) {
        if (!formula.place.empty()) reportError(formula.place + ":");
        reportScriptError(error);
    }
    return !failed;
}

}  // namespace

ExitStatus runEval(EvalOptions const& options) {
    KxJsParser parser;
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
