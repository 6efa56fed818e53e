#include <CLI/App.hpp>
#include <memory>

#include "cli/commands/Commands.h"
#include "cli/commands/LanguageOption.h"
#include "cli/commands/LimitOption.h"
#include "cli/prompt/Prompt.h"

namespace kx {

void addRepl(CLI::App& app, Command& chosen) {
    CLI::App* const repl = app.add_subcommand("repl", "Evaluate formulas at a prompt");
    auto const limits = std::make_shared<LimitOptions>();
    auto const isInProcess = std::make_shared<bool>(false);
    auto const language = std::make_shared<LanguageOptions>();
    addTranslated(*repl, *language);
    addLimits(*repl, *limits);
    repl->add_flag("--in-process", *isInProcess, "Run formulas in the process of the prompt");
    repl->footer(
        "\"NAME = VALUE\" binds a variable; \":help\" lists the commands. Where standard input is "
        "no\n"
        "terminal, its lines are read without a prompt, and the exit status is 1 if one failed.\n"
        "What was typed is kept in $XDG_STATE_HOME/kxjs/history (~/.local/state).");
    repl->callback([=, &chosen] {
        limits->isIsolated = !*isInProcess;
        chosen = [=] { return runPrompt(limitsFrom(*limits), *language); };
    });
}

}  // namespace kx
