#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "cli/formula/FormulaReader.h"
#include "cli/formula/FormulaRun.h"
#include "cli/formula/Limits.h"
#include "cli/prompt/Assignment.h"
#include "host/KxJsParser.h"

namespace kx {

/// The state of a prompt between lines: the host, its variables, and what to show.
class ReplSession {
  public:
    /// `promptWidth` is the width of the prompt before a typed line, or 0 where lines are not typed
    /// at a terminal. Errors are marked below the typed line only at a terminal. `limits` hold for
    /// each formula.
    ReplSession(std::size_t promptWidth, Limits const& limits, LanguageOptions const& language);

    /// Runs a line: a formula, an assignment or a command. Returns false, after a report, when it
    /// failed. Throws UsageError for a wrong argument of a command.
    bool run(std::u16string const& line);

    /// Whether ":quit" was entered.
    bool hasEnded() const { return hasEnded_; }

    KxJsParser& parser() { return parser_; }

    std::map<std::u16string, KxJsVariable> const& variables() const { return variables_; }

  private:
    bool runCommand(std::u16string const& name, std::u16string const& argument);
    bool help(std::u16string const& function);
    bool showJavaScript(std::u16string const& formula);
    bool showTime(std::u16string const& formula);
    void showVariables() const;
    void reset();
    bool evaluateOrAssign(std::u16string const& line);
    bool assign(Assignment const& assignment, std::u16string const& line);
    bool bind(KxJsVariable const& variable);
    bool evaluate(std::u16string const& formula);
    FormulaRun timedRun(std::u16string const& formula, std::u16string const& line);
    bool hasNewWorker() const;
    void report(std::u16string const& formula, std::u16string const& line, FormulaRun const& run);

    FormulaReader reader() const;

    std::size_t promptWidth_;
    LanguageOptions language_;
    KxJsParser parser_;
    std::map<std::u16string, KxJsVariable> variables_;
    bool showsJavaScript_ = false;
    bool showsTime_ = false;
    bool hasEnded_ = false;
};

}  // namespace kx
