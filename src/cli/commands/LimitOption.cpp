#include "cli/commands/LimitOption.h"

#include <CLI/App.hpp>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "cli/io/Errors.h"

namespace kx {
namespace {

constexpr std::int32_t kLongestTimeout = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLargestMemory = 4096;  // the most that the library can watch

std::int32_t numberOf(std::string const& option, std::string const& value, std::string_view unit,
                      std::int32_t largest) {
    std::int32_t number = 0;
    char const* const last = value.data() + value.size();
    auto const [end, error] = std::from_chars(value.data(), last, number);
    if (error != std::errc() || end != last || number < 1 || number > largest) {
        throw UsageError(option + " \"" + value + "\": expected a whole number of " +
                         std::string(unit) + " from 1 to " + std::to_string(largest));
    }
    return number;
}

}  // namespace

void addLimits(CLI::App& command, LimitOptions& options) {
    command
        .add_option("--timeout", options.timeout, "End a formula that runs longer; default: never")
        ->type_name("MS");
    command
        .add_option("--memory", options.memory,
                    "End a formula that needs more; default: a quarter of the\n"
                    "machine's memory, at most 512")
        ->type_name("MIB");
}

void addIsolated(CLI::App& command, LimitOptions& options) {
    command.add_flag("--isolated", options.isIsolated,
                     "Run formulas in a process of their own, which\n"
                     "at worst ends in place of this one");
}

Limits limitsFrom(LimitOptions const& options) {
    Limits limits;
    limits.isIsolated = options.isIsolated;
    if (options.timeout) {
        limits.time = std::chrono::milliseconds(
            numberOf("--timeout", *options.timeout, "milliseconds", kLongestTimeout));
    }
    if (options.memory) {
        std::int32_t const mebibytes = numberOf("--memory", *options.memory, "MiB", kLargestMemory);
        limits.memory = static_cast<std::size_t>(mebibytes) << 20;
    }
    return limits;
}

}  // namespace kx
