#include "cli/commands/LimitOption.h"

#include <CLI/App.hpp>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "cli/commands/ArgumentGuard.h"
#include "cli/io/Errors.h"
#include "host/KxJsParser.h"

namespace kx {
namespace {

constexpr std::int32_t kLongestTimeout = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLargestMemory = 4096;  // what the library can watch

std::int32_t numberOf(std::string const& option, std::string const& written, std::string_view unit,
                      std::int32_t largest) {
    std::string const value = unguarded(written);
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

void addLimits(CLI::App& command, Limits& limits) {
    command
        .add_option("--timeout", limits.timeout, "End a formula that runs longer; default: never")
        ->type_name("MS");
    command
        .add_option("--memory", limits.memory,
                    "End a formula that needs more; default: a quarter of the\n"
                    "machine's memory, at most 512")
        ->type_name("MIB");
}

std::chrono::milliseconds timeLimitOf(Limits const& limits) {
    if (!limits.timeout) return std::chrono::milliseconds::zero();
    return std::chrono::milliseconds(
        numberOf("--timeout", *limits.timeout, "milliseconds", kLongestTimeout));
}

void setLimits(KxJsParser& parser, Limits const& limits) {
    parser.setTimeLimit(timeLimitOf(limits));
    if (!limits.memory) return;
    std::int32_t const mebibytes = numberOf("--memory", *limits.memory, "MiB", kLargestMemory);
    parser.setMemoryLimit(static_cast<std::size_t>(mebibytes) << 20);
}

}  // namespace kx
