#include <CLI/App.hpp>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands/Commands.h"
#include "cli/commands/CommonOptions.h"
#include "cli/commands/LanguageOption.h"
#include "cli/commands/LimitOption.h"
#include "cli/formula/FailureReport.h"
#include "cli/formula/FormulaRun.h"
#include "cli/formula/FormulaSource.h"
#include "cli/formula/VariableOption.h"
#include "cli/io/Output.h"
#include "host/KxJsParser.h"
#include "text/Utf8.h"

namespace kx {
namespace {

struct EvalOptions {
    LanguageOptions language;
    std::map<CLI::Option const*, VariableOption> variables;
    LimitOptions limits;
    std::vector<std::string> formulas;
};

/// The variables in the order of the command line: the last one of a name counts.
std::vector<KxJsVariable> variablesFrom(CLI::App const& command, EvalOptions const& options) {
    std::vector<KxJsVariable> variables;
    std::map<CLI::Option const*, std::size_t> used;
    for (CLI::Option const* option : command.parse_order()) {
        auto const kind = options.variables.find(option);
        if (kind == options.variables.end()) continue;
        variables.push_back(parseVariable(kind->second, option->results().at(used[option]++)));
    }
    return variables;
}

void bind(KxJsParser& parser, std::vector<KxJsVariable> const& variables) {
    for (KxJsVariable const& variable : variables) {
        if (!parser.addSetVariable(variable)) {
            throw UsageError("a variable cannot have the name \"" +
                             utf8FromUtf16(variable.getKey()) + "\"");
        }
    }
}

/// Prints the result of one formula; false when it failed.
bool evaluate(KxJsParser& parser, Formula const& formula, FormulaReader const& reader) {
    FormulaRun const run = runFormula(parser, formula.text, reader);
    if (run.hasResult()) printLine(run.result);
    // The result appears before the error text, and before a later formula that takes long.
    flushOutput();
    if (run.hasFailed) {
        if (!formula.place.empty()) reportError(formula.place + ":");
        KxJsFailure const* const failure = parser.lastFailure();
        reportScriptError(failureReport(formula.text, run, failure));
        bool const hasNewWorker =
            failure != nullptr && failure->kind == KxJsFailure::Kind::WORKER_ENDED;
        if (hasNewWorker) reader.prepare(parser);
    }
    return !run.hasFailed;
}

ExitStatus runEval(CLI::App const& command, EvalOptions const& options) {
    std::vector<KxJsVariable> const variables = variablesFrom(command, options);
    requireInput(options.formulas.empty(), "formula");
    Limits const limits = limitsFrom(options.limits);
    KxJsParser parser = makeHost(limits);
    setLimits(parser, limits);
    parser.initialize();
    std::vector<std::u16string> keys;
    keys.reserve(variables.size());
    for (KxJsVariable const& variable : variables) keys.push_back(variable.getKey());
    FormulaReader const reader(options.language, keys);
    reader.prepare(parser);
    bind(parser, variables);
    bool hasFailed = false;
    forEachFormula(options.formulas, [&](Formula const& formula) {
        if (!evaluate(parser, formula, reader)) hasFailed = true;
    });
    flushOutput();
    return hasFailed ? ExitStatus::failed : ExitStatus::ok;
}

}  // namespace

void addEval(CLI::App& app, Command& chosen) {
    CLI::App* const eval = app.add_subcommand("eval", "Evaluate formulas and print their results");
    auto const options = std::make_shared<EvalOptions>();
    auto const addVariable = [&](char const* name, VariableOption kind, char const* help) {
        options->variables[addRepeatable(*eval, name, "NAME=VALUE", help)] = kind;
    };
    addLanguage(*eval, options->language);
    addVariable("-v", VariableOption::guessed, "Bind a variable; the type follows from the value");
    addVariable("--long", VariableOption::wholeNumber, "Bind a whole number of 32 bits");
    addVariable("--double", VariableOption::number, "Bind a number");
    addVariable("--string", VariableOption::text, "Bind a text");
    addVariable("--bool", VariableOption::boolean, "Bind true or false");
    addLimits(*eval, options->limits);
    addIsolated(*eval, options->limits);
    addFormulas(*eval, options->formulas);
    eval->footer(
        "Without a formula, formulas are read from standard input, one a line. All of them run\n"
        "in one context, in order; one that fails does not keep the next from running.\n\n"
        "Example: kxjs eval -v A=5 \"IIF(A>2,'OK','KO')\"");
    eval->callback([=, &chosen] { chosen = [=] { return runEval(*eval, *options); }; });
}

}  // namespace kx
