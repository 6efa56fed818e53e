#pragma once

#include <string>

#include "translate/KxJsTranslator.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace kx {

/// What the commands that read the older language by its grammar are told of it.
struct TranslatorOptions {
    CLI::Option const* variables = nullptr;  ///< NAME or NAME=KIND
    CLI::Option const* functions = nullptr;
    std::string dateFormat;
    bool isExact = false;
    bool isStrict = false;
};

void addTranslatorOptions(CLI::App& command, TranslatorOptions& options);

/// Throws UsageError for a kind that does not exist, an empty name, and a wrong date format.
KxJsTranslator translatorFrom(TranslatorOptions const& options);

}  // namespace kx
