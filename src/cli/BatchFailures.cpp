#include "cli/BatchFailures.h"

#include <utility>

#include "cli/Output.h"
#include "cli/Utf8.h"

namespace kx {
namespace {

std::string inOneLine(std::u16string message) {
    for (char16_t& unit : message) {
        if (unit == u'\n' || unit == u'\r') unit = u' ';
    }
    return utf8FromUtf16(message);
}

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
