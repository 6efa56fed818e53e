// The commands of a session: lines that begin with a colon.
#include <string_view>
#include <utility>

#include "cli/formula/FailureReport.h"
#include "cli/formula/FunctionHelp.h"
#include "cli/io/Output.h"
#include "cli/prompt/ReplSession.h"
#include "text/Utf8.h"

namespace kx {
namespace {

constexpr std::u16string_view kHelp =
    u"FORMULA          evaluate a formula; a variable that it misses is an error\n"
    u"NAME = VALUE     bind a variable: a number, 'text', true, false, or a formula's result\n"
    u":help [NAME]     this help, or the texts of a built-in function\n"
    u":js [FORMULA]    show the JavaScript of formulas or no longer, or of one formula\n"
    u":quit            leave; Ctrl-D does too\n"
    u":reset           forget all variables\n"
    u":time [FORMULA]  show how long formulas take or no longer, or how long one does\n"
    u":vars            the variables\n"
    u"\n"
    u"Tab completes names. Ctrl-C ends a formula that runs, and empties the line that is typed.";

}  // namespace

bool ReplSession::runCommand(std::u16string const& name, std::u16string const& argument) {
    if (name == u"help") return help(argument);
    if (name == u"js") return showJavaScript(argument);
    if (name == u"time") return showTime(argument);
    bool const isKnown = name == u"quit" || name == u"reset" || name == u"vars";
    if (!isKnown || !argument.empty()) {
        reportError(isKnown ? ":" + utf8FromUtf16(name) + " takes nothing behind it"
                            : "there is no command \":" + utf8FromUtf16(name) +
                                  R"("; ":help" lists them all)");
        return false;
    }
    if (name == u"quit") hasEnded_ = true;
    if (name == u"reset") reset();
    if (name == u"vars") showVariables();
    return true;
}

bool ReplSession::help(std::u16string const& function) {
    if (function.empty()) {
        printLine(kHelp);
        return true;
    }
    printFunction(utf8FromUtf16(function), cataloguesOf(language_.isTranslated));
    return true;
}

bool ReplSession::showJavaScript(std::u16string const& formula) {
    if (!formula.empty()) {
        FormulaRun const read = reader().read(formula);
        if (read.hasFailed) {
            reportScriptError(failureReport(formula, read, nullptr));
            return false;
        }
        printLine(read.javaScript);
        return true;
    }
    showsJavaScript_ = !showsJavaScript_;
    printLine(showsJavaScript_ ? u"The JavaScript of formulas is shown."
                               : u"The JavaScript of formulas is no longer shown.");
    return true;
}

bool ReplSession::showTime(std::u16string const& formula) {
    if (!formula.empty()) {
        struct Restored {
            bool& value;
            bool before;
            ~Restored() { value = before; }
        } const restored{showsTime_, std::exchange(showsTime_, true)};
        return evaluateOrAssign(formula);
    }
    showsTime_ = !showsTime_;
    printLine(showsTime_ ? u"The time of formulas is shown."
                         : u"The time of formulas is no longer shown.");
    return true;
}

void ReplSession::showVariables() const {
    for (auto const& [name, variable] : variables_) printLine(describeVariable(variable));
}

void ReplSession::reset() {
    parser_.reset();
    variables_.clear();
}

}  // namespace kx
