#pragma once

#include <optional>
#include <string>

#include "cli/formula/Limits.h"

namespace CLI {
class App;
}

namespace kx {

/// The values of --timeout and --memory as they were written, none where an option is missing; and
/// whether formulas run in a process of their own.
struct LimitOptions {
    std::optional<std::string> timeout;  ///< milliseconds
    std::optional<std::string> memory;   ///< MiB
    bool isIsolated = false;
};

/// Adds the two options to a command. `options` has to live until the command line is parsed.
void addLimits(CLI::App& command, LimitOptions& options);

/// Adds the option that asks for isolated hosts: `--isolated`.
void addIsolated(CLI::App& command, LimitOptions& options);

/// The limits that the options ask for. Throws UsageError for anything but a whole number in range.
Limits limitsFrom(LimitOptions const& options);

}  // namespace kx
