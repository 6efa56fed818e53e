#include "cli/commands/ArgumentGuard.h"

#include <CLI/App.hpp>
#include <algorithm>

namespace kx {
namespace {

constexpr char kGuard = '\x01';

// An argument that begins with the guard character gets another one, and so keeps its own.
bool needsGuard(std::string const& argument) {
    return argument.starts_with('[') || argument.starts_with("++") || argument.starts_with(kGuard);
}

std::string unguarded(std::string const& argument) {
    return argument.starts_with(kGuard) ? argument.substr(1) : argument;
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

void removeGuards(CLI::App& app) {
    for (CLI::App* command : app.get_subcommands({})) {
        for (CLI::Option* option : command->get_options()) option->transform(unguarded);
    }
}

std::string withoutGuards(std::string message) {
    std::erase(message, kGuard);
    return message;
}

}  // namespace kx
