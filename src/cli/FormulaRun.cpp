#include "cli/FormulaRun.h"

#include <cstdint>

#include "convert/Converter.h"

namespace kx {

FormulaRun runFormula(KxJsParser& parser, std::u16string const& formula, bool isJavaScript) {
    FormulaRun run;
    run.javaScript = isJavaScript ? formula : Converter::_convert(formula.c_str());
    std::int32_t const script = parser.parse(run.javaScript, run.errorText);
    if (script >= 0) run.result = parser.execute(script, run.errorText);
    run.hasFailed = script < 0 || !run.errorText.empty();
    return run;
}

}  // namespace kx
