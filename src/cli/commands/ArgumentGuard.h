#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

// CLI11 splits an argument in brackets at its commas, ends a command at "++", and misreads "--"
// between two formulas. Formulas may contain all of these. Such an argument is therefore parsed
// with a guard in front, a character that means nothing to CLI11.
namespace kx {

/// The arguments with their guards. "--" is applied and removed.
std::vector<std::string> guarded(std::vector<std::string> arguments);

/// Makes every option of every command of `app` remove the guard from its values.
void removeGuards(CLI::App& app);

/// `message`, one of CLI11 that may quote arguments, without guards.
std::string withoutGuards(std::string message);

}  // namespace kx
