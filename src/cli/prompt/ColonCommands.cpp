// The commands of the prompt, and what Tab completes.
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "cli/formula/Catalogue.h"
#include "cli/formula/FunctionHelp.h"
#include "cli/io/Output.h"
#include "cli/io/Utf8.h"
#include "cli/prompt/ReplSession.h"
#include "convert/Converter.h"
#include "text/NameUnits.h"

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

constexpr std::array<std::u16string_view, 6> kCommands = {u":help",  u":js",   u":quit",
                                                          u":reset", u":time", u":vars"};

/// Commands are words that begin with a colon.
bool isInWord(char16_t unit) { return mayBeNamePart(unit) || unit == u':'; }

/// Whether `name` begins with `start`, in any case of ASCII letters.
bool beginsWith(std::u16string_view name, std::u16string_view start) {
    auto const lower = [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    };
    return name.size() >= start.size() &&
           std::equal(start.begin(), start.end(), name.begin(),
                      [&](char16_t a, char16_t b) { return lower(a) == lower(b); });
}

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
    printFunction(utf8FromUtf16(function));
    return true;
}

bool ReplSession::showJavaScript(std::u16string const& formula) {
    if (!formula.empty()) {
        printLine(Converter::_convert(formula.c_str()));
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

Completion ReplSession::complete(std::u16string const& beforeCursor) const {
    std::size_t start = beforeCursor.size();
    while (start > 0 && isInWord(beforeCursor[start - 1])) --start;
    std::u16string const word = beforeCursor.substr(start);
    Completion found;
    found.wordLength = word.size();
    if (word.empty()) return found;
    bool const isHelp = beforeCursor.starts_with(u":help");
    for (std::u16string_view const command : kCommands) {
        if (start == 0 && command.starts_with(word)) found.candidates.emplace_back(command);
    }
    for (auto const& [name, variable] : variables_) {
        if (!isHelp && name.starts_with(word)) found.candidates.push_back(name);
    }
    for (Catalogue const& catalogue : builtInCatalogues()) {
        for (KxJsFunction const& function : catalogue.functions) {
            if (!beginsWith(function.getName(), word)) continue;
            found.candidates.push_back(function.getName() + (isHelp ? u"" : u"("));
        }
    }
    std::sort(found.candidates.begin(), found.candidates.end());
    return found;
}

}  // namespace kx
