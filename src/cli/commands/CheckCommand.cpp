#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/check/CheckRun.h"
#include "cli/commands/Commands.h"
#include "cli/commands/CommonOptions.h"
#include "cli/commands/TranslatorOption.h"

namespace kx {
namespace {

struct CheckCommandOptions {
    TranslatorOptions translator;
    CheckOptions check;
};

}  // namespace

void addCheck(CLI::App& app, Command& chosen) {
    CLI::App* const check =
        app.add_subcommand("check", "Say where the conversion changes what formulas mean");
    auto const options = std::make_shared<CheckCommandOptions>();
    CLI::Option* const input =
        check->add_option("-i", options->check.input, "Formulas, one a line")->type_name("FILE");
    CLI::Option* const column =
        check->add_option("--column", options->check.column,
                          "The input is CSV with a header; the formulas are in this column");
    column->type_name("NAME");
    CLI::Option* const csv =
        check->add_flag("--csv", options->check.isCsv, "Print CSV, a record for each finding");
    CLI::Option* const json =
        check->add_flag("--json", options->check.isJson, "Print JSON, an object for each formula");
    json->excludes(csv);
    CLI::Option* const html =
        check->add_option("--html", options->check.html, "Write a report to look at and filter");
    html->type_name("FILE");
    check->add_flag("--all", options->check.isAll, "Print formulas that keep their meaning too");
    addTranslatorOptions(*check, options->translator);
    addFormulas(*check, options->check.formulas);
    check->footer(
        "Without a formula and -i, formulas are read from standard input, one a line. Prints\n"
        "what the conversion does to each, then a summary. Exit status 1 where a formula does\n"
        "not keep its meaning.\n\n"
        "Example: kxjs check -i formulas.txt --html report.html");
    check->callback([=, &chosen] {
        chosen = [=] {
            requireValue(*input, "file");
            requireValue(*column, "name");
            requireValue(*html, "file");
            KxJsTranslator const translator = translatorFrom(options->translator);
            requireInput(options->check.formulas.empty() && options->check.input.empty(),
                         "formula");
            return runCheck(options->check, translator);
        };
    });
}

}  // namespace kx
