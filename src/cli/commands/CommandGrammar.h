#pragma once

#include <functional>

#include "cli/io/Errors.h"

namespace CLI {
class App;
}

namespace kx {

/// A command with its options, ready to run.
using Command = std::function<ExitStatus()>;

/// Adds the commands of kxjs to `app`. Parsing then puts the chosen one into `command`, which, like
/// `app`, has to live until it was run.
void addCommands(CLI::App& app, Command& command);

}  // namespace kx
