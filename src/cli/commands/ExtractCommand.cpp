#include <CLI/App.hpp>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cli/commands/Commands.h"
#include "cli/commands/CommonOptions.h"
#include "cli/commands/LanguageOption.h"
#include "cli/commands/LimitOption.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/Output.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace kx {
namespace {

struct ExtractOptions {
    LanguageOptions language;
    LimitOptions limits;
    std::vector<std::string> formulas;
};

/// A translation has its names without being run.
std::vector<std::u16string> translatedNames(std::u16string const& formula, std::u16string& error) {
    KxJsTranslator::Translation translation = KxJsTranslator().translate(formula);
    error = describeFindings(translation.findings);
    return std::move(translation.variables);
}

std::vector<std::u16string> namesIn(std::u16string const& formula, LanguageOptions const& language,
                                    Limits const& limits, std::u16string& error) {
    if (language.isTranslated) return translatedNames(formula, error);
    std::u16string const source =
        language.isJavaScript ? formula : Converter::_convert(formula.c_str());
    return limits.isIsolated
               ? KxJsParser::_extractVariable(source, error, limits.time, isolationFor(limits))
               : KxJsParser::_extractVariable(source, error, limits.time);
}

ExitStatus runExtract(ExtractOptions const& options) {
    requireInput(options.formulas.empty(), "formula");
    Limits const limits = limitsFrom(options.limits);
    // The searches create their own hosts. This host keeps the memory limit of the thread.
    std::optional<KxJsParser> limited;
    if (!limits.isIsolated) setLimits(limited.emplace(), limits);
    bool hasFailed = false;
    std::set<std::u16string> printed;
    forEachFormula(options.formulas, [&](Formula const& formula) {
        std::u16string error;
        for (std::u16string const& name : namesIn(formula.text, options.language, limits, error)) {
            if (printed.insert(name).second) printLine(name);
        }
        flushOutput();
        if (error.empty()) return;
        hasFailed = true;
        if (!formula.place.empty()) reportError(formula.place + ":");
        reportScriptError(error);
    });
    flushOutput();
    return hasFailed ? ExitStatus::failed : ExitStatus::ok;
}

}  // namespace

void addExtract(CLI::App& app, Command& chosen) {
    CLI::App* const extract =
        app.add_subcommand("extract", "Print the names that formulas use and nothing defines");
    auto const options = std::make_shared<ExtractOptions>();
    addLanguage(*extract, options->language);
    addLimits(*extract, options->limits);
    addIsolated(*extract, options->limits);
    addFormulas(*extract, options->formulas);
    extract->footer(
        "Without a formula, formulas are read from standard input, one a line. Each name is\n"
        "printed once. The names are found by running the formula again and again; a formula\n"
        "that makes up new names as it runs never ends, unless --timeout ends the search.\n\n"
        "Example: kxjs extract \"IIF(PRICE>2,NAME,'KO')\"");
    extract->callback([=, &chosen] { chosen = [=] { return runExtract(*options); }; });
}

}  // namespace kx
