#include "cli/commands/ArgumentGuard.h"

#include <algorithm>
#include <utility>

namespace kx {
namespace {

constexpr char kGuard = '\x01';

// An argument that begins with the guard itself gets another one, so that it keeps its own.
bool needsGuard(std::string const& argument) {
    return argument.starts_with('[') || argument.starts_with("++") || argument.starts_with(kGuard);
}

}  // namespace

std::vector<std::string> guarded(std::vector<std::string> arguments) {
    auto const dashes = std::find(arguments.begin(), arguments.end(), "--");
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (argument > dashes || needsGuard(*argument)) argument->insert(0, 1, kGuard);
    }
    if (dashes != arguments.end()) arguments.erase(dashes);
    return arguments;
}

std::string unguarded(std::string argument) {
    if (argument.starts_with(kGuard)) argument.erase(0, 1);
    return argument;
}

std::vector<std::string> unguarded(std::vector<std::string> arguments) {
    for (std::string& argument : arguments) argument = unguarded(std::move(argument));
    return arguments;
}

std::string withoutGuards(std::string message) {
    std::erase(message, kGuard);
    return message;
}

}  // namespace kx
