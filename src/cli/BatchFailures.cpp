#include "cli/BatchFailures.h"

#include <utility>

#include "cli/MessageText.h"
#include "cli/Output.h"

namespace kx {
namespace {

bool isSamePlace(FailedLine const& one, FailedLine const& other) {
    return one.isTyped == other.isTyped && one.number == other.number && one.marks == other.marks;
}

}  // namespace

BatchFailures::BatchFailures(std::u16string formula, std::u16string javaScript)
    : _mFormula(std::move(formula)) {
    _mRun.javaScript = std::move(javaScript);
}

void BatchFailures::report(std::string const& place, KxJsColumns::Failure const& failure) {
    reportError(place + ": " + inOneLine(failure.message));
    KxJsFailure position;
    position.line = failure.line;
    position.column = failure.column;
    position.endColumn = failure.endColumn;
    auto line = failedLine(_mFormula, _mRun, &position);
    if (!line || isSamePlace(*line, _mShown)) return;
    _mShown = std::move(*line);
    reportScriptError((_mShown.isTyped ? u"" : u"In the formula's JavaScript:\n") + _mShown.text +
                      u"\n" + _mShown.marks);
}

}  // namespace kx
