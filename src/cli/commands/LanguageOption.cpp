#include "cli/commands/LanguageOption.h"

#include <CLI/App.hpp>

namespace kx {

void addTranslated(CLI::App& command, LanguageOptions& options) {
    CLI::Option* const translated =
        command.add_flag("--translated", options.isTranslated,
                         "Translate by the language's grammar instead of converting by rules");
    command
        .add_flag("--exact", options.isExact,
                  "With --translated: compare texts in full, but for trailing blanks")
        ->needs(translated);
}

void addLanguage(CLI::App& command, LanguageOptions& options) {
    CLI::Option* const javaScript = command.add_flag(
        "--js", options.isJavaScript, "The formulas are JavaScript; do not convert them");
    addTranslated(command, options);
    command.get_option("--translated")->excludes(javaScript);
}

}  // namespace kx
