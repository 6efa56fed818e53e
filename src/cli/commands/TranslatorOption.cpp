#include "cli/commands/TranslatorOption.h"

#include <CLI/App.hpp>
#include <stdexcept>
#include <string_view>

#include "cli/commands/CommonOptions.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/Errors.h"

namespace kx {
namespace {

KxJsTranslator::Kind kindFrom(std::string_view name, std::string const& argument) {
    if (name == "text") return KxJsTranslator::Kind::TEXT;
    if (name == "number") return KxJsTranslator::Kind::NUMBER;
    if (name == "logical") return KxJsTranslator::Kind::LOGICAL;
    throw UsageError("\"" + argument + "\": kinds are text, number and logical");
}

KxJsTranslator::Variable variableFrom(std::string const& argument) {
    std::size_t const sign = argument.find('=');
    std::string const name = argument.substr(0, sign);
    if (name.empty()) throw UsageError("\"" + argument + "\": the name is missing");
    KxJsTranslator::Variable variable{decodeArgument(name, "variable")};
    if (sign != std::string::npos) variable.kind = kindFrom(argument.substr(sign + 1), argument);
    return variable;
}

}  // namespace

void addTranslatorOptions(CLI::App& command, TranslatorOptions& options) {
    options.variables =
        addRepeatable(command, "--variable", "NAME[=KIND]",
                      "A variable in its own case; KIND is text, number or logical");
    options.functions =
        addRepeatable(command, "--function", "NAME", "A function that the application defines");
    command
        .add_option("--date-format", options.dateFormat,
                    "How dates are written and read; default: YYYY-MM-DD")
        ->type_name("FORMAT");
    command.add_flag("--exact", options.isExact, "Compare texts in full, but for trailing blanks");
    command.add_flag("--strict", options.isStrict, "Refuse names that no --variable gives");
}

KxJsTranslator translatorFrom(TranslatorOptions const& options) {
    KxJsTranslator::Options translation;
    translation.exact = options.isExact;
    translation.strict = options.isStrict;
    for (std::string const& variable : options.variables->results()) {
        translation.variables.push_back(variableFrom(variable));
    }
    for (std::string const& function : options.functions->results()) {
        translation.functions.push_back(decodeArgument(function, "function"));
    }
    if (!options.dateFormat.empty()) {
        translation.dateFormat = decodeArgument(options.dateFormat, "date format");
    }
    try {
        return KxJsTranslator(translation);
    } catch (std::invalid_argument const& error) {
        throw UsageError("--date-format: " + std::string(error.what()));
    }
}

}  // namespace kx
