#pragma once

#include <functional>

#include "cli/io/Errors.h"

namespace CLI {
class App;
}

// The commands of kxjs, one file each. Every function adds the grammar of one command to `app`;
// where parsing finds the command, it puts it into `chosen`.
namespace kx {

/// A command with its options, ready to run. It writes its results to standard output, returns the
/// status that the program ends with, and throws UsageError and WorkError.
using Command = std::function<ExitStatus()>;

/// `app` and `chosen` have to live until the command has run.
/// @{
void addEval(CLI::App& app, Command& chosen);
void addBatch(CLI::App& app, Command& chosen);
void addConvert(CLI::App& app, Command& chosen);
void addExtract(CLI::App& app, Command& chosen);
void addTranslate(CLI::App& app, Command& chosen);
void addCheck(CLI::App& app, Command& chosen);
void addFunctions(CLI::App& app, Command& chosen);
void addDocs(CLI::App& app, Command& chosen);
void addRepl(CLI::App& app, Command& chosen);
/// @}

}  // namespace kx
