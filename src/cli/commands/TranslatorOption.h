#pragma once

#include <string>
#include <vector>

#include "translate/KxJsTranslator.h"

namespace CLI {
class App;
}

namespace kx {

/// What the commands that read the older language by its grammar are told of it.
struct TranslatorOptions {
    std::vector<std::string> variables;  ///< NAME or NAME=KIND
    std::vector<std::string> functions;
    std::string dateFormat;
    bool isExact = false;
    bool isStrict = false;
};

void addTranslatorOptions(CLI::App& command, TranslatorOptions& options);

/// Throws UsageError for a kind that does not exist, an empty name, and a wrong date format.
KxJsTranslator translatorFrom(TranslatorOptions const& options);

}  // namespace kx
