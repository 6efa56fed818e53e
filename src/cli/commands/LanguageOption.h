#pragma once

#include "cli/formula/FormulaReader.h"

namespace CLI {
class App;
}

namespace kx {

/// Adds "--js", "--translated" and "--exact".
void addLanguage(CLI::App& command, LanguageOptions& options);

/// Adds "--translated" and "--exact", for commands whose formulas are never JavaScript.
void addTranslated(CLI::App& command, LanguageOptions& options);

}  // namespace kx
