#include "cli/formula/FailureReport.h"

#include <algorithm>
#include <string_view>

#include "cli/formula/TypedPlace.h"
#include "cli/io/DisplayWidth.h"
#include "text/LineEnd.h"
#include "text/Utf8.h"

namespace kx {
namespace {

std::size_t lineStart(std::u16string_view text, std::int32_t number) {
    std::size_t start = 0;
    for (std::int32_t line = 1; line < number; ++line) {
        std::size_t const next = nextLine(text, start);
        if (next == std::u16string_view::npos) break;
        start = next;
    }
    return start;
}

FailedLine lineAt(std::u16string_view text, Span place, bool isTyped) {
    FailedLine line;
    line.isTyped = isTyped;
    std::size_t start = 0;
    for (std::size_t next = nextLine(text, 0); next <= place.start; next = nextLine(text, next)) {
        start = next;
        ++line.number;
    }
    line.text = text.substr(start, text.find_first_of(kLineEnds, start) - start);
    std::u16string_view const shown = line.text;
    std::size_t const from = std::min(place.start - start, shown.size());
    std::size_t const to = std::clamp(place.end - start, from, shown.size());
    line.marks = blanksUnder(shown.substr(0, from));
    // An error at the end of the line has no width; it gets one mark.
    std::size_t const width = displayWidth(shown.substr(from, to - from));
    line.marks.append(std::max<std::size_t>(width, 1), u'^');
    return line;
}

}  // namespace

std::optional<FailedLine> failedLine(std::u16string const& formula, FormulaRun const& run,
                                     KxJsFailure const* failure) {
    if (run.refusedAt) return lineAt(formula, *run.refusedAt, true);
    if (failure == nullptr || failure->line == 0) return std::nullopt;
    std::size_t const start = lineStart(run.javaScript, failure->line);
    Span const place{start + static_cast<std::size_t>(failure->column) - 1,
                     start + static_cast<std::size_t>(failure->endColumn) - 1};
    if (auto const typed = typedPlace(formula, run.javaScript, place)) {
        return lineAt(formula, *typed, true);
    }
    return lineAt(run.javaScript, place, false);
}

std::u16string failureMessage(FormulaRun const& run, KxJsFailure const* failure) {
    return run.refusedAt || failure == nullptr ? run.errorText : failure->message;
}

std::u16string failureReport(std::u16string const& formula, FormulaRun const& run,
                             KxJsFailure const* failure) {
    auto const line = failedLine(formula, run, failure);
    if (!line) return run.errorText;
    return u"Error in line: " + utf16FromUtf8(std::to_string(line->number)) +
           (line->isTyped ? u"" : u" of the formula's JavaScript") + u"\n" +
           failureMessage(run, failure) + u"\n" + line->text + u"\n" + line->marks + u"\n";
}

}  // namespace kx
