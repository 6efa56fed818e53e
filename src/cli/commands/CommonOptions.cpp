#include "cli/commands/CommonOptions.h"

#include <CLI/App.hpp>
#include <unistd.h>

#include "cli/io/Errors.h"

namespace kx {

CLI::Option* addRepeatable(CLI::App& command, std::string const& name, std::string const& valueName,
                           std::string const& help) {
    return command.add_option(name, help)
        ->type_name(valueName)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void addFormulas(CLI::App& command, std::vector<std::string>& formulas) {
    command
        .add_option("FORMULA", formulas, "Formulas; \"-\" stands for the lines of standard input")
        ->type_name("");
}

void requireValue(CLI::Option const& option, std::string const& what) {
    if (option.count() > 0 && option.results().back().empty()) {
        throw UsageError(option.get_name() + " needs a " + what);
    }
}

void requireInput(bool isMissing, std::string const& what) {
    if (isMissing && ::isatty(STDIN_FILENO) == 1) {
        throw UsageError("no " + what + " given (and standard input is a terminal)");
    }
}

}  // namespace kx
