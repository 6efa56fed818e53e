#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands/Commands.h"
#include "cli/commands/CommonOptions.h"
#include "cli/commands/TranslatorOption.h"
#include "cli/formula/FailureReport.h"
#include "cli/formula/FormulaReader.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/Output.h"

namespace kx {
namespace {

struct TranslateOptions {
    TranslatorOptions translator;
    bool isRunTime = false;
    std::vector<std::string> formulas;
};

/// Reports each finding with its place.
void report(Formula const& formula, std::vector<KxJsTranslator::Finding> const& findings) {
    if (!formula.place.empty()) reportError(formula.place + ":");
    for (KxJsTranslator::Finding const& finding : findings) {
        FormulaRun run;
        run.refusedAt = Span{finding.position, finding.position + finding.length};
        run.errorText = describeFindings({finding});
        run.hasFailed = true;
        reportScriptError(failureReport(formula.text, run, nullptr));
    }
}

ExitStatus runTranslate(TranslateOptions const& options) {
    KxJsTranslator const translator = translatorFrom(options.translator);
    if (options.isRunTime) {
        print(KxJsTranslator::runTimePart());
        flushOutput();
        return ExitStatus::ok;
    }
    requireInput(options.formulas.empty(), "formula");
    bool hasFailed = false;
    forEachFormula(options.formulas, [&](Formula const& formula) {
        auto const translation = translator.translate(formula.text);
        printLine(translation.javaScript);
        flushOutput();
        if (translation.findings.empty()) return;
        hasFailed = true;
        report(formula, translation.findings);
    });
    return hasFailed ? ExitStatus::failed : ExitStatus::ok;
}

}  // namespace

void addTranslate(CLI::App& app, Command& chosen) {
    CLI::App* const translate =
        app.add_subcommand("translate", "Print JavaScript that means what formulas mean");
    auto const options = std::make_shared<TranslateOptions>();
    addTranslatorOptions(*translate, options->translator);
    translate->add_flag("--run-time", options->isRunTime,
                        "Print the script that translations need instead");
    addFormulas(*translate, options->formulas);
    translate->footer(
        "Without a formula, formulas are read from standard input, one a line. Every formula\n"
        "gives one line; an empty one, after a report, where it has no translation.\n\n"
        "Example: kxjs translate \"IIF(A=2 .AND. NAME='S', 1, 0)\"");
    translate->callback([=, &chosen] { chosen = [=] { return runTranslate(*options); }; });
}

}  // namespace kx
