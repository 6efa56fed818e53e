#include "cli/commands/CommandLine.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <new>
#include <sstream>

#include "cli/commands/ArgumentGuard.h"
#include "cli/commands/Commands.h"
#include "cli/io/Output.h"
#include "text/Utf8.h"

namespace kx {
namespace {

/// The message for a command line that CLI11 refused.
std::string messageFor(CLI::App const& app, CLI::Error const& error,
                       std::vector<std::string> const& arguments) {
    if (app.get_subcommands().empty()) {
        std::string commands;
        for (CLI::App const* command : app.get_subcommands({})) {
            commands += (commands.empty() ? "" : ", ") + command->get_name();
        }
        return (arguments.empty() ? "no command given"
                                  : "\"" + arguments.front() + "\" is not a command") +
               "; there are: " + commands;
    }
    std::string message = withoutGuards(error.what());
    if (dynamic_cast<CLI::ExtrasError const*>(&error) != nullptr) {
        message += " (a formula that begins with \"-\" goes after --)";
    }
    return message;
}

/// Prints what CLI11 answers: help, version, or an error.
ExitStatus report(CLI::App const& app, CLI::Error const& error,
                  std::vector<std::string> const& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    if (app.exit(error, out, err) == 0) {
        print(utf16FromUtf8(out.str()));
        flushOutput();
        return ExitStatus::ok;
    }
    reportError(messageFor(app, error, arguments));
    reportError(R"("kxjs --help" and "kxjs COMMAND --help" explain the usage)");
    return ExitStatus::usage;
}

ExitStatus parseAndRun(std::vector<std::string> const& arguments) {
    Command chosen;
    CLI::App app("Evaluates formulas of an older upper-case language and JavaScript.", "kxjs");
    app.set_version_flag("--version", "kxjs " KXJS_VERSION " (V8 " KXJS_V8_VERSION ")");
    app.require_subcommand(1);
    for (auto const add : {addEval, addBatch, addConvert, addTranslate, addCheck, addExtract,
                           addFunctions, addDocs, addRepl}) {
        add(app, chosen);
    }
    removeGuards(app);
    app.footer(
        "Input and output are UTF-8. Exit status: 0, 1 when a formula failed or an output could\n"
        "not be written, 2 for wrong usage. Where nothing reads the output, SIGPIPE ends it.");
    try {
        std::vector<std::string> reversed = guarded(arguments);
        std::reverse(reversed.begin(), reversed.end());  // CLI11 expects the last one first
        app.parse(std::move(reversed));
    } catch (CLI::Error const& error) {
        return report(app, error, arguments);
    }
    return chosen();
}

/// Ends the program as other programs end whose reader has gone. Returns where SIGPIPE is blocked.
void endByPipeSignal() {
    std::signal(SIGPIPE, SIG_DFL);
    std::raise(SIGPIPE);
}

}  // namespace

ExitStatus runCommandLine(std::vector<std::string> const& arguments) {
    // The default action would end the process and leave unfinished files behind.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return parseAndRun(arguments);
    } catch (UsageError const& error) {
        reportError(error.what());
        return ExitStatus::usage;
    } catch (ReaderGone const&) {
        endByPipeSignal();
        return ExitStatus::readerGone;
    } catch (std::bad_alloc const&) {
        reportError("out of memory");
    } catch (std::exception const& error) {
        reportError(error.what());
    }
    return ExitStatus::failed;
}

}  // namespace kx
