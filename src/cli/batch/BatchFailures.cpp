#include "cli/batch/BatchFailures.h"

#include <utility>

#include "cli/io/MessageText.h"
#include "cli/io/Output.h"

namespace kx {
namespace {

bool isSamePlace(FailedLine const& one, FailedLine const& other) {
    return one.isTyped == other.isTyped && one.number == other.number && one.marks == other.marks;
}

}  // namespace

std::string placeOf(CsvBlock const& block, std::size_t record) {
    return "line " + std::to_string(block.line(record));
}

BatchFailures::BatchFailures(std::u16string formula, std::u16string javaScript)
    : formula_(std::move(formula)) {
    run_.javaScript = std::move(javaScript);
}

void BatchFailures::reportFormula(std::u16string const& error, KxJsFailure const* failure) {
    FormulaRun run = run_;
    run.errorText = error;
    reportScriptError(failureReport(formula_, run, failure));
}

void BatchFailures::reportRecords(CsvBlock const& block, BatchColumns const& columns,
                                  std::vector<KxJsColumns::Failure> const& failures) {
    auto refused = columns.refused().begin();
    auto const reportRefused = [&](std::size_t before) {
        for (; refused != columns.refused().end() && refused->first < before; ++refused) {
            reportError(placeOf(block, refused->first) + ": " + refused->second);
        }
    };
    for (KxJsColumns::Failure const& failure : failures) {
        std::size_t const record = columns.loaded()[failure.record];
        reportRefused(record);
        report(placeOf(block, record), failure);
    }
    reportRefused(block.size());
}

void BatchFailures::report(std::string const& place, KxJsColumns::Failure const& failure) {
    reportError(place + ": " + inOneLine(failure.message));
    KxJsFailure position;
    position.line = failure.line;
    position.column = failure.column;
    position.endColumn = failure.endColumn;
    auto line = failedLine(formula_, run_, &position);
    if (!line || isSamePlace(*line, shown_)) return;
    shown_ = std::move(*line);
    reportScriptError((shown_.isTyped ? u"" : u"In the formula's JavaScript:\n") + shown_.text +
                      u"\n" + shown_.marks);
}

}  // namespace kx
