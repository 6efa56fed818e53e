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

BatchFailures::BatchFailures(std::u16string formula, std::u16string javaScript)
    : formula_(std::move(formula)) {
    run_.javaScript = std::move(javaScript);
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
