#pragma once

#include <chrono>
#include <optional>
#include <string>

class KxJsParser;

namespace CLI {
class App;
}

namespace kx {

/// What a formula may use before it is ended: the options --timeout and --memory, which every
/// command that runs formulas has.
struct Limits {
    std::optional<std::string> timeout;  ///< milliseconds as they were written; none: no limit
    std::optional<std::string> memory;   ///< MiB as they were written; none: the library's default
};

/// Adds the two options to a command. `limits` has to live until the command has run.
void addLimits(CLI::App& command, Limits& limits);

/// The time that was asked for; 0 where none was. Throws UsageError for anything but a whole
/// number of milliseconds in range.
std::chrono::milliseconds timeLimitOf(Limits const& limits);

/// Sets both limits. The memory limit then holds for every host of the thread. Throws UsageError as
/// timeLimitOf() does, for either of the two.
void setLimits(KxJsParser& parser, Limits const& limits);

}  // namespace kx
