#include "cli/prompt/ReplSession.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <string_view>

#include "cli/formula/Catalogue.h"
#include "cli/formula/FailureReport.h"
#include "cli/formula/VariableOption.h"
#include "cli/io/DisplayWidth.h"
#include "cli/io/Errors.h"
#include "cli/io/Output.h"
#include "cli/io/Terminal.h"
#include "text/Utf8.h"

namespace kx {
namespace {

bool isIn(std::vector<Catalogue> const& catalogues, std::u16string const& name) {
    for (Catalogue const& catalogue : catalogues) {
        for (KxJsFunction const& function : catalogue.functions) {
            if (function.getName() == name) return true;
        }
    }
    return false;
}

void printTime(std::chrono::steady_clock::duration time) {
    double const milliseconds = std::chrono::duration<double, std::milli>(time).count();
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "(%.3f ms)", milliseconds);
    printLine(utf16FromUtf8(text.data()));
}

}  // namespace

ReplSession::ReplSession(std::size_t promptWidth, Limits const& limits,
                         LanguageOptions const& language)
    : promptWidth_(promptWidth), language_(language), parser_(makeHost(limits)) {
    setLimits(parser_, limits);
    parser_.initialize();
    reader().prepare(parser_);
}

FormulaReader ReplSession::reader() const {
    std::vector<std::u16string> keys;
    for (auto const& [key, variable] : variables_) keys.push_back(key);
    return FormulaReader(language_, keys);
}

bool ReplSession::run(std::u16string const& line) {
    std::size_t const start = line.find_first_not_of(u" \t");
    if (start == std::u16string::npos) return true;
    if (line[start] == u':') {
        std::size_t const end = std::min(line.find_first_of(u" \t", start), line.size());
        std::size_t const argument = std::min(line.find_first_not_of(u" \t", end), line.size());
        std::size_t const last = line.find_last_not_of(u" \t") + 1;
        return runCommand(line.substr(start + 1, end - start - 1),
                          argument < last ? line.substr(argument, last - argument) : u"");
    }
    return evaluateOrAssign(line);
}

bool ReplSession::evaluateOrAssign(std::u16string const& line) {
    if (auto const assignment = assignmentFrom(line)) return assign(*assignment, line);
    return evaluate(line);
}

bool ReplSession::assign(Assignment const& assignment, std::u16string const& line) {
    if (isIn(builtInCatalogues(), assignment.name)) {
        reportError(utf8FromUtf16(assignment.name) + " is a built-in function");
        return false;
    }
    if (auto const literal = literalVariable(assignment)) return bind(*literal);
    FormulaRun const run = timedRun(assignment.value, line);
    if (run.hasFailed) {
        report(assignment.value, line, run);
        return false;
    }
    return bind(parseVariable(VariableOption::guessed,
                              utf8FromUtf16(assignment.name) + "=" + utf8FromUtf16(run.result)));
}

bool ReplSession::bind(KxJsVariable const& variable) {
    std::u16string const name = variable.getKey();
    // Every formula that contains a name which scripts cannot assign to would fail.
    std::u16string ignored;
    if (parser_.parse(name + u"=0", ignored) < 0 || !parser_.addSetVariable(variable)) {
        reportError("a variable cannot have the name \"" + utf8FromUtf16(name) + "\"");
        return false;
    }
    variables_[name] = variable;
    printLine(describeVariable(variable));
    return true;
}

bool ReplSession::evaluate(std::u16string const& formula) {
    FormulaRun const run = timedRun(formula, formula);
    if (run.hasFailed) report(formula, formula, run);
    return !run.hasFailed;
}

/// Whether the last run has cost its worker.
bool ReplSession::hasNewWorker() const {
    KxJsFailure const* const failure = parser_.lastFailure();
    return failure != nullptr && failure->kind == KxJsFailure::Kind::WORKER_ENDED;
}

FormulaRun ReplSession::timedRun(std::u16string const& formula, std::u16string const& line) {
    auto const start = std::chrono::steady_clock::now();
    FormulaRun run = runFormula(parser_, formula, reader());
    auto const end = std::chrono::steady_clock::now();
    if (showsJavaScript_) printLine(u"JavaScript: " + run.javaScript);
    // An assignment prints the variable instead of the result.
    if (run.hasResult() && formula == line) printLine(run.result);
    if (showsTime_) printTime(end - start);
    flushOutput();
    return run;
}

void ReplSession::report(std::u16string const& formula, std::u16string const& line,
                         FormulaRun const& run) {
    KxJsFailure const* const failure = parser_.lastFailure();
    auto const failed = failedLine(formula, run, failure);
    std::u16string const before = line.substr(0, line.rfind(formula));
    std::size_t const width = promptWidth_ + displayWidth(line);
    // Marks go below the typed line where it fits in one row and nothing was printed after it.
    if (failed && failed->isTyped && promptWidth_ > 0 && width < outputWidth() &&
        !run.hasResult() && !showsJavaScript_ && !showsTime_) {
        reportScriptError(std::u16string(promptWidth_, u' ') + blanksUnder(before) + failed->marks +
                          u"\n" + failureMessage(run, failure));
    } else {
        reportScriptError(failureReport(formula, run, failure));
    }
    if (!hasNewWorker()) return;
    reportError("formulas have a new process now; what they left in globals is gone");
    reader().prepare(parser_);
}

}  // namespace kx
