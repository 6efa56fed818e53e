#include "cli/formula/FormulaRun.h"

#include "cli/formula/FormulaReader.h"

namespace kx {

FormulaRun runFormula(KxJsParser& parser, std::u16string const& formula,
                      FormulaReader const& reader) {
    FormulaRun run = reader.read(formula);
    if (run.hasFailed) return run;
    // The host does not keep the script: most formulas run once.
    run.result = parser.evaluate(run.javaScript, run.errorText);
    run.hasFailed = !run.errorText.empty();
    return run;
}

}  // namespace kx
