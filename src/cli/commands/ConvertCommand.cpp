#include "cli/commands/Commands.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/Output.h"
#include "convert/Converter.h"

namespace kx {

ExitStatus runConvert(ConvertOptions const& options) {
    forEachFormula(options.formulas, [](Formula const& formula) {
        printLine(Converter::_convert(formula.text.c_str()));
    });
    flushOutput();
    return EXIT_STATUS_OK;
}

}  // namespace kx
