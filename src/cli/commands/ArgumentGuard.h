#pragma once

#include <string>
#include <vector>

// CLI11 splits an argument in brackets at its commas, ends a command at "++" and loses its way when
// formulas stand on both sides of "--", but all these can be meant. Such an argument is parsed with
// a character in front that CLI11 gives no meaning to.
namespace kx {

/// The arguments as CLI11 reads them rightly; the "--" is done with and missing.
std::vector<std::string> guarded(std::vector<std::string> arguments);

/// What was behind the guard of a parsed argument, or the argument itself where it has none.
std::string unguarded(std::string argument);
std::vector<std::string> unguarded(std::vector<std::string> arguments);

/// A message of CLI11, which may quote guarded arguments.
std::string withoutGuards(std::string message);

}  // namespace kx
