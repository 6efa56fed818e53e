#include "cli/CommandGrammar.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "cli/ArgumentGuard.h"
#include "cli/Commands.h"
#include "cli/VariableOption.h"

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
    addFormulas(*extract, options->formulas);
    extract->footer(
        "Without a formula, formulas are read from standard input, one a line. Each name is\n"
        "printed once. The names are found by running the formula again and again; a formula\n"
        "that makes up new names as it runs never ends.\n\n"
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
    repl->footer(
        "\"NAME = VALUE\" binds a variable; \":help\" lists the commands. Where standard input is "
        "no\n"
        "terminal, its lines are read without a prompt, and the exit status is 1 if one failed.\n"
        "What was typed is kept in $XDG_STATE_HOME/kxjs/history (~/.local/state).");
    repl->callback([&command] { command = runRepl; });
}

}  // namespace

void addCommands(CLI::App& app, Command& command) {
    addEval(app, command);
    addConvert(app, command);
    addExtract(app, command);
    addFunctions(app, command);
    addDocs(app, command);
    addRepl(app, command);
}

}  // namespace kx
