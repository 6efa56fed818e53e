#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

// Options and arguments that several commands have.
namespace kx {

/// Adds an option that may be repeated, with one value each time. Its values are the option's
/// results.
CLI::Option* addRepeatable(CLI::App& command, std::string const& name, std::string const& valueName,
                           std::string const& help);

/// Adds formulas as arguments. `formulas` has to live until the command line is parsed.
void addFormulas(CLI::App& command, std::vector<std::string>& formulas);

/// Throws UsageError where `option` was given with an empty value, that is, without a `what`.
void requireValue(CLI::Option const& option, std::string const& what);

/// Throws UsageError, which says that no `what` is given, where `isMissing` and standard input is a
/// terminal: a user who forgets the argument would wait for a program that waits for input.
void requireInput(bool isMissing, std::string const& what);

}  // namespace kx
