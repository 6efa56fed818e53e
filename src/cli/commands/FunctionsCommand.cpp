#include <CLI/App.hpp>
#include <memory>
#include <string>

#include "cli/commands/Commands.h"
#include "cli/formula/FunctionHelp.h"
#include "cli/io/Output.h"

namespace kx {

void addFunctions(CLI::App& app, Command& chosen) {
    CLI::App* const functions =
        app.add_subcommand("functions", "List the built-in functions, or explain one");
    auto const name = std::make_shared<std::string>();
    auto const isTranslated = std::make_shared<bool>(false);
    functions->add_flag("--translated", *isTranslated,
                        "The functions that translated formulas call");
    functions->add_option("NAME", *name, "Name of a function, in any letter case")->type_name("");
    functions->footer("Example: kxjs functions ROUND");
    functions->callback([=, &chosen] {
        chosen = [=] {
            if (name->empty()) {
                printFunctions(cataloguesOf(*isTranslated));
            } else {
                printFunction(*name, cataloguesOf(*isTranslated));
            }
            flushOutput();
            return ExitStatus::ok;
        };
    });
}

}  // namespace kx
