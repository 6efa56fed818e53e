#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands/Commands.h"
#include "cli/commands/CommonOptions.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/Output.h"
#include "convert/Converter.h"

namespace kx {
namespace {

ExitStatus runConvert(std::vector<std::string> const& formulas) {
    requireInput(formulas.empty(), "formula");
    forEachFormula(formulas, [](Formula const& formula) {
        printLine(Converter::_convert(formula.text.c_str()));
    });
    flushOutput();
    return ExitStatus::ok;
}

}  // namespace

void addConvert(CLI::App& app, Command& chosen) {
    CLI::App* const convert = app.add_subcommand("convert", "Print the JavaScript of formulas");
    auto const formulas = std::make_shared<std::vector<std::string>>();
    addFormulas(*convert, *formulas);
    convert->footer(
        "Without a formula, formulas are read from standard input, one a line. Every formula\n"
        "gives one line.\n\n"
        "Example: kxjs convert \"A<>2 .AND. B>1\"");
    convert->callback([=, &chosen] { chosen = [=] { return runConvert(*formulas); }; });
}

}  // namespace kx
