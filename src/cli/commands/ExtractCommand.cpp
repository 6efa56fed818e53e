#include <set>
#include <string>

#include "cli/commands/Commands.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/Output.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace kx {

ExitStatus runExtract(ExtractOptions const& options) {
    // The searches make hosts of their own; this one keeps the memory limit of their thread.
    KxJsParser limited;
    setLimits(limited, options.limits);
    bool failed = false;
    std::set<std::u16string> printed;
    forEachFormula(options.formulas, [&](Formula const& formula) {
        std::u16string error;
        std::u16string const source =
            options.javaScript ? formula.text : Converter::_convert(formula.text.c_str());
        for (std::u16string const& name :
             KxJsParser::_extractVariable(source, error, timeLimitOf(options.limits))) {
            if (printed.insert(name).second) printLine(name);
        }
        flushOutput();
        if (error.empty()) return;
        failed = true;
        if (!formula.place.empty()) reportError(formula.place + ":");
        reportScriptError(error);
    });
    flushOutput();
    return failed ? EXIT_STATUS_FAILED : EXIT_STATUS_OK;
}

}  // namespace kx
