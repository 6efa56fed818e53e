#include "cli/check/HtmlReport.h"

#include "cli/check/Json.h"
#include "cli/check/ReportPage.h"

namespace kx {

void HtmlReport::add(std::u16string const& formula, std::size_t line,
                     KxJsTranslator::Check const& check) {
    if (!formulas_.empty()) formulas_ += ",\n";
    formulas_ += jsonOf(formula, line, check);
}

std::string HtmlReport::finish(Summary const& summary) {
    std::string counts;
    for (std::size_t i = 0; i < kVerdictCount; ++i) {
        auto const verdict = static_cast<KxJsTranslator::Verdict>(i);
        counts.append(i == 0 ? "" : ",").append("[\"").append(verdictName(verdict));
        counts.append("\",").append(std::to_string(summary.countOf(verdict))).append("]");
    }
    std::string codes;
    for (auto const& [code, count] : summary.codes()) {
        codes.append(codes.empty() ? "[" : ",[");
        appendJson(codes, code);
        codes.append(",").append(std::to_string(count)).append("]");
    }
    std::string page(kReportPage);
    constexpr std::string_view kMark = "@data@";
    page.replace(page.find(kMark), kMark.size(),
                 "{\"verdicts\":[" + counts + "],\"codes\":[" + codes + "],\"formulas\":[" +
                     formulas_ + "]}");
    return page;
}

}  // namespace kx
