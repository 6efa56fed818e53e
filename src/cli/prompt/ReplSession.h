#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>

#include "cli/formula/FormulaRun.h"
#include "cli/formula/Limits.h"
#include "cli/prompt/Assignment.h"
#include "cli/prompt/LineEditor.h"
#include "host/KxJsParser.h"

namespace kx {

/// What a prompt knows between its lines: the host, its variables, and what is shown.
class ReplSession {
  public:
    /// `promptWidth` is the number of columns before a typed line when it is still on the screen
    /// above its errors; 0 where it is not. `limits` hold for every formula.
    ReplSession(std::size_t promptWidth, Limits const& limits);

    /// Does what a line asks for: a formula, an assignment or a command. False when that failed;
    /// what is wrong was then reported.
    bool run(std::u16string const& line);

    /// Whether ":quit" was entered.
    bool hasEnded() const { return hasEnded_; }

    KxJsParser& parser() { return parser_; }

    /// The names that can complete `beforeCursor`: functions, variables and commands.
    Completion complete(std::u16string const& beforeCursor) const;

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
    void report(std::u16string const& formula, std::u16string const& line, FormulaRun const& run);

    std::size_t promptWidth_;
    KxJsParser parser_;
    std::map<std::u16string, KxJsVariable> variables_;
    bool showsJavaScript_ = false;
    bool showsTime_ = false;
    bool hasEnded_ = false;
};

}  // namespace kx
