#include "cli/formula/FormulaRun.h"

#include "convert/Converter.h"

namespace kx {

FormulaRun runFormula(KxJsParser& parser, std::u16string const& formula, bool isJavaScript) {
    FormulaRun run;
    run.javaScript = isJavaScript ? formula : Converter::_convert(formula.c_str());
    // The host does not keep the script: most formulas run once.
    run.result = parser.evaluate(run.javaScript, run.errorText);
    run.hasFailed = !run.errorText.empty();
    return run;
}

}  // namespace kx
