#pragma once

#include <optional>
#include <string>

#include "cli/formula/Limits.h"

namespace CLI {
class App;
}

namespace kx {

/// The values of --timeout and --memory as they were written; none where an option is missing.
struct LimitOptions {
    std::optional<std::string> timeout;  ///< milliseconds
    std::optional<std::string> memory;   ///< MiB
};

/// Adds the two options to a command. `options` has to live until the command line is parsed.
void addLimits(CLI::App& command, LimitOptions& options);

/// The limits that the options ask for. Throws UsageError for anything but a whole number in range.
Limits limitsFrom(LimitOptions const& options);

}  // namespace kx
