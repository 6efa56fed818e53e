#include "cli/commands/CommandGrammar.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

#include "cli/commands/ArgumentGuard.h"
#include "cli/commands/Commands.h"
#include "cli/formula/VariableOption.h"

namespace kx {
namespace {

/// An option that may be given again and again, with one value each time.
CLI::Option* addRepeatable(CLI::App& app, std::string const& flags, std::string const& help) {
    return app.add_option(flags, help)
        ->type_name("NAME=VALUE")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

/// The variables in the order of the command line, so that the last of two with one name holds.
std::vector<KxJsVariable> variablesOf(CLI::App const& app,
                                      std::map<CLI::Option const*, VariableOption> const& kinds) {
    std::vector<KxJsVariable> variables;
    std::map<CLI::Option const*, std::size_t> used;
    for (CLI::Option const* option : app.parse_order()) {
        auto const kind = kinds.find(option);
        if (kind == kinds.end()) continue;
        variables.push_back(
            parseVariable(kind->second, unguarded(option->results().at(used[option]++))));
    }
    return variables;
}

CLI::Option* addFormulas(CLI::App& app, std::vector<std::string>& formulas) {
    return app
        .add_option("FORMULA", formulas, "Formulas; \"-\" stands for the lines of standard input")
        ->type_name("");
}

/// A person who forgets the formula should not wait for the program, which waits for them.
void requireInput(std::vector<std::string> const& formulas) {
    if (formulas.empty() && ::isatty(STDIN_FILENO) == 1) {
        throw UsageError("no formula given (and standard input is a terminal)");
    }
}

void addEval(CLI::App& app, Command& command) {
    CLI::App* const eval = app.add_subcommand("eval", "Evaluate formulas and print their results");
    auto const options = std::make_shared<EvalOptions>();
    eval->add_flag("--js", options->javaScript, "The formulas are JavaScript; do not convert them");
    std::map<CLI::Option const*, VariableOption> const kinds = {
        {addRepeatable(*eval, "-v", "Bind a variable; the type follows from the value"),
         VariableOption::GUESS},
        {addRepeatable(*eval, "--long", "Bind a whole number of 32 bits"), VariableOption::LONG},
        {addRepeatable(*eval, "--double", "Bind a number"), VariableOption::DOUBLE},
        {addRepeatable(*eval, "--string", "Bind a text"), VariableOption::STRING},
        {addRepeatable(*eval, "--bool", "Bind true or false"), VariableOption::BOOLEAN},
    };
    addLimits(*eval, options->limits);
    addFormulas(*eval, options->formulas);
    eval->footer(
        "Without a formula, formulas are read from standard input, one a line. All of them run\n"
        "in one context, in order; one that fails does not keep the next from running.\n\n"
        "Example: kxjs eval -v A=5 \"IIF(A>2,'OK','KO')\"");
    eval->callback([=, &command] {
        command = [=] {
            options->variables = variablesOf(*eval, kinds);
            options->formulas = unguarded(std::move(options->formulas));
            requireInput(options->formulas);
            return runEval(*options);
        };
    });
}

std::map<std::string, CellType> typesFrom(std::vector<std::string> const& assignments) {
    std::map<std::string, CellType> types;
    for (std::string const& assignment : assignments) {
        // A header may hold the sign, a type does not.
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

void addBatch(CLI::App& app, Command& command) {
    CLI::App* const batch =
        app.add_subcommand("batch", "Evaluate a formula for every record of a CSV file");
    struct Texts {
        BatchOptions options;
        std::vector<std::string> types;
        std::string delimiter = ",";
    };
    auto const texts = std::make_shared<Texts>();
    BatchOptions& options = texts->options;
    batch->add_flag("--js", options.javaScript, "The formula is JavaScript; do not convert it");
    CLI::Option* const input =
        batch->add_option("-i", options.input, "CSV file to read; default: standard input");
    input->type_name("IN.csv");
    CLI::Option* const output =
        batch->add_option("-o", options.output, "CSV file to write; default: standard output");
    output->type_name("OUT.csv");
    batch->add_option("--as", options.resultName, "Header of the column with the results")
        ->type_name("NAME")
        ->capture_default_str();
    batch->add_option("--delimiter", texts->delimiter, "What stands between cells; tab is one too")
        ->type_name("CHARACTER");
    batch
        ->add_option("--type", texts->types,
                     "Type of a column: double, long, string or bool; may be repeated")
        ->type_name("NAME=TYPE")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    addLimits(*batch, options.limits);
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
    batch->callback([=, &command] {
        command = [=] {
            BatchOptions chosen = texts->options;
            if (input->count() > 0 && chosen.input.empty()) throw UsageError("-i needs a file");
            if (output->count() > 0 && chosen.output.empty()) throw UsageError("-o needs a file");
            chosen.formula = unguarded(std::move(chosen.formula));
            chosen.input = unguarded(std::move(chosen.input));
            chosen.output = unguarded(std::move(chosen.output));
            chosen.resultName = unguarded(std::move(chosen.resultName));
            chosen.delimiter = delimiterFrom(unguarded(texts->delimiter));
            chosen.types = typesFrom(unguarded(texts->types));
            if (chosen.input.empty() && ::isatty(STDIN_FILENO) == 1) {
                throw UsageError("no file given (and standard input is a terminal)");
            }
            return runBatch(chosen);
        };
    });
}

void addConvert(CLI::App& app, Command& command) {
    CLI::App* const convert = app.add_subcommand("convert", "Print the JavaScript of formulas");
    auto const options = std::make_shared<ConvertOptions>();
    addFormulas(*convert, options->formulas);
    convert->footer(
        "Without a formula, formulas are read from standard input, one a line. Every formula\n"
        "gives one line.\n\n"
        "Example: kxjs convert \"A<>2 .AND. B>1\"");
    convert->callback([=, &command] {
        command = [=] {
            options->formulas = unguarded(std::move(options->formulas));
            requireInput(options->formulas);
            return runConvert(*options);
        };
    });
}

void addExtract(CLI::App& app, Command& command) {
    CLI::App* const extract =
        app.add_subcommand("extract", "Print the names that formulas use and nobody defines");
    auto const options = std::make_shared<ExtractOptions>();
    extract->add_flag("--js", options->javaScript,
                      "The formulas are JavaScript; do not convert them");
    addLimits(*extract, options->limits);
    addFormulas(*extract, options->formulas);
    extract->footer(
        "Without a formula, formulas are read from standard input, one a line. Each name is\n"
        "printed once. The names are found by running the formula again and again; a formula\n"
        "that makes up new names as it runs never ends, unless --timeout ends the search.\n\n"
        "Example: kxjs extract \"IIF(PRICE>2,NAME,'KO')\"");
    extract->callback([=, &command] {
        command = [=] {
            options->formulas = unguarded(std::move(options->formulas));
            requireInput(options->formulas);
            return runExtract(*options);
        };
    });
}

void addFunctions(CLI::App& app, Command& command) {
    CLI::App* const functions =
        app.add_subcommand("functions", "List the built-in functions, or explain one");
    auto const options = std::make_shared<FunctionsOptions>();
    functions->add_option("NAME", options->name, "Name of a function, in any letter case")
        ->type_name("");
    functions->footer("Example: kxjs functions ROUND");
    functions->callback([=, &command] {
        command = [=] {
            options->name = unguarded(std::move(options->name));
            return runFunctions(*options);
        };
    });
}

void addDocs(CLI::App& app, Command& command) {
    CLI::App* const docs =
        app.add_subcommand("docs", "Write the HTML documentation of the built-in functions");
    auto const options = std::make_shared<DocsOptions>();
    CLI::Option* const examples =
        docs->add_flag("--examples", options->examples, "Include the examples");
    CLI::Option* const fragment = docs->add_flag(
        "--fragment", options->fragment, "Leave out head and body, to embed the text in a page");
    CLI::Option* const file =
        docs->add_option("-o", options->file, "File to write; default: standard output")
            ->type_name("FILE");
    CLI::Option* const pages =
        docs->add_option("--pages", options->directory,
                         "Write one page for each function and an index.html into DIR");
    pages->type_name("DIR")->excludes(examples)->excludes(fragment)->excludes(file);
    docs->footer("Example: kxjs docs --examples -o functions.html");
    docs->callback([=, &command] {
        command = [=] {
            if (file->count() > 0 && options->file.empty()) throw UsageError("-o needs a file");
            if (pages->count() > 0 && options->directory.empty()) {
                throw UsageError("--pages needs a directory");
            }
            options->file = unguarded(std::move(options->file));
            options->directory = unguarded(std::move(options->directory));
            return runDocs(*options);
        };
    });
}

void addRepl(CLI::App& app, Command& command) {
    CLI::App* const repl = app.add_subcommand("repl", "Evaluate formulas at a prompt");
    auto const options = std::make_shared<ReplOptions>();
    addLimits(*repl, options->limits);
    repl->footer(
        "\"NAME = VALUE\" binds a variable; \":help\" lists the commands. Where standard input is "
        "no\n"
        "terminal, its lines are read without a prompt, and the exit status is 1 if one failed.\n"
        "What was typed is kept in $XDG_STATE_HOME/kxjs/history (~/.local/state).");
    repl->callback([=, &command] { command = [=] { return runRepl(*options); }; });
}

}  // namespace

void addCommands(CLI::App& app, Command& command) {
    addEval(app, command);
    addBatch(app, command);
    addConvert(app, command);
    addExtract(app, command);
    addFunctions(app, command);
    addDocs(app, command);
    addRepl(app, command);
}

}  // namespace kx
