#include <CLI/App.hpp>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/batch/Batch.h"
#include "cli/commands/Commands.h"
#include "cli/commands/CommonOptions.h"
#include "cli/commands/LanguageOption.h"
#include "cli/commands/LimitOption.h"

namespace kx {
namespace {

/// The values of the command line, before they are checked.
struct BatchArguments {
    BatchOptions options;
    CLI::Option const* types = nullptr;
    std::string delimiter = ",";
    LimitOptions limits;
};

std::map<std::string, CellType> typesFrom(std::vector<std::string> const& assignments) {
    std::map<std::string, CellType> types;
    for (std::string const& assignment : assignments) {
        // A header may contain the sign; a type does not.
        std::size_t const equals = assignment.rfind('=');
        auto const type = equals == std::string::npos
                              ? std::nullopt
                              : cellTypeNamed(std::string_view(assignment).substr(equals + 1));
        if (!type) {
            throw UsageError("--type \"" + assignment +
                             "\": expected NAME=double, long, string or bool");
        }
        types[assignment.substr(0, equals)] = *type;
    }
    return types;
}

char delimiterFrom(std::string const& text) {
    if (text == "\\t" || text == "tab") return '\t';
    bool const isPossible =
        text.size() == 1 && text[0] > 0 && text != "\"" && text != "\r" && text != "\n";
    if (isPossible) return text[0];
    throw UsageError("--delimiter \"" + text + "\": expected one ASCII character, or tab");
}

ExitStatus runBatch(BatchArguments const& arguments) {
    BatchOptions options = arguments.options;
    options.delimiter = delimiterFrom(arguments.delimiter);
    options.types = typesFrom(arguments.types->results());
    requireInput(options.input.empty(), "file");
    options.limits = limitsFrom(arguments.limits);
    return runBatch(options);
}

}  // namespace

void addBatch(CLI::App& app, Command& chosen) {
    CLI::App* const batch =
        app.add_subcommand("batch", "Evaluate a formula for every record of a CSV file");
    auto const arguments = std::make_shared<BatchArguments>();
    BatchOptions& options = arguments->options;
    addLanguage(*batch, options.language);
    CLI::Option* const input =
        batch->add_option("-i", options.input, "CSV file to read; default: standard input");
    input->type_name("IN.csv");
    CLI::Option* const output =
        batch->add_option("-o", options.output, "CSV file to write; default: standard output");
    output->type_name("OUT.csv");
    batch->add_option("--as", options.resultName, "Header of the column with the results")
        ->type_name("NAME")
        ->capture_default_str();
    batch
        ->add_option("--delimiter", arguments->delimiter,
                     "What stands between cells; tab is one too")
        ->type_name("CHARACTER");
    arguments->types =
        addRepeatable(*batch, "--type", "NAME=TYPE",
                      "Type of a column: double, long, string or bool; may be repeated");
    addLimits(*batch, arguments->limits);
    addIsolated(*batch, arguments->limits);
    batch->add_option("FORMULA", options.formula, "The formula")->type_name("")->required();
    batch->footer(
        "The file has a header; a column whose header is a name is a variable of that name. A\n"
        "column without --type is a number or a boolean where all its cells are, as far as the\n"
        "first block of the file shows, else a text. Records that fail, and those with an empty\n"
        "or other cell that is no value of its column's type, are reported by line; their result\n"
        "is empty and the exit status 1. OUT.csv is replaced when everything is written.\n"
        "--timeout limits the time that the formula takes for all records together; when it or\n"
        "--memory ends the formula, the work ends, and OUT.csv stays as it was.\n\n"
        "Example: kxjs batch \"PRICE*QUANTITY\" -i orders.csv -o totals.csv --as TOTAL");
    batch->callback([=, &chosen] {
        chosen = [=] {
            requireValue(*input, "file");
            requireValue(*output, "file");
            return runBatch(*arguments);
        };
    });
}

}  // namespace kx
