#include "cli/check/CheckOutput.h"

#include "cli/batch/CsvText.h"
#include "cli/check/Json.h"
#include "cli/io/Output.h"
#include "text/Utf8.h"

namespace kx {
namespace {

std::string summaryText(Summary const& summary) {
    auto const row = [&](std::string_view name, std::size_t count) {
        constexpr std::size_t kNameWidth = 20;
        constexpr std::size_t kCountWidth = 9;
        std::string line = "  ";
        line.append(name);
        line.resize(std::max(line.size() + 1, kNameWidth), ' ');
        std::string const number = std::to_string(count);
        if (number.size() < kCountWidth) line.append(kCountWidth - number.size(), ' ');
        line += number;
        std::size_t const tenths = summary.count() == 0 ? 0 : count * 1000 / summary.count();
        std::string share = std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
        share.insert(0, share.size() < 7 ? 7 - share.size() : 0, ' ');
        return line + share + " %\n";
    };
    std::string text =
        std::to_string(summary.count()) + (summary.count() == 1 ? " formula\n" : " formulas\n");
    for (std::size_t i = 0; i < kVerdictCount; ++i) {
        auto const verdict = static_cast<KxJsTranslator::Verdict>(i);
        if (summary.countOf(verdict) > 0) {
            text += row(verdictName(verdict), summary.countOf(verdict));
        }
    }
    auto const codes = summary.codes();
    if (!codes.empty()) text += "formulas with a finding\n";
    for (auto const& [code, count] : codes) text += row(utf8FromUtf16(code), count);
    return text;
}

}  // namespace

void CheckOutput::begin() {
    if (options_.isCsv) {
        printLine(
            u"line,formula,verdict,code,position,length,text,javascript,rewrite,formula_rewritten");
    }
    if (options_.isJson) printLine(u"[");
}

void CheckOutput::write(std::u16string const& formula, std::size_t line,
                        KxJsTranslator::Check const& check) {
    if (options_.isCsv) {
        writeCsv(formula, line, check);
    } else if (options_.isJson) {
        printBytes(isFirst_ ? "" : ",\n");
        printBytes(jsonOf(formula, line, check));
    } else {
        writeText(formula, line, check);
    }
    isFirst_ = false;
}

void CheckOutput::writeCsv(std::u16string const& formula, std::size_t line,
                           KxJsTranslator::Check const& check) {
    std::string start = std::to_string(line) + ',';
    appendCell(start, utf8FromUtf16(formula), ',');
    start.append(",").append(verdictName(check.verdict));
    std::string end = ",";
    appendCell(end, utf8FromUtf16(check.rewrite), ',');
    end += '\n';
    if (check.damages.empty()) printBytes(start + ",,,,,," + end);
    for (KxJsTranslator::Damage const& damage : check.damages) {
        std::string record = start + ',' + utf8FromUtf16(damage.code) + ',' +
                             std::to_string(damage.position + 1) + ',' +
                             std::to_string(damage.length) + ',';
        appendCell(record, utf8FromUtf16(damage.text), ',');
        record += ',';
        appendCell(record, utf8FromUtf16(damage.javaScript), ',');
        record += ',';
        appendCell(record, utf8FromUtf16(damage.rewrite), ',');
        printBytes(record + end);
    }
}

void CheckOutput::writeText(std::u16string const& formula, std::size_t line,
                            KxJsTranslator::Check const& check) {
    std::string text = std::to_string(line) + ": ";
    text.append(verdictName(check.verdict)).append(": ").append(utf8FromUtf16(formula));
    text += '\n';
    for (KxJsTranslator::Damage const& damage : check.damages) {
        text += "    " + utf8FromUtf16(damage.code) + " at " + std::to_string(damage.position + 1) +
                ": " + utf8FromUtf16(damage.text) + '\n';
    }
    if (!check.rewrite.empty()) {
        text += "    write: " + utf8FromUtf16(check.rewrite) + '\n';
    } else {
        for (KxJsTranslator::Damage const& damage : check.damages) {
            if (damage.rewrite.empty()) continue;
            text += "    write at " + std::to_string(damage.rewritePosition + 1) + ": " +
                    utf8FromUtf16(damage.rewrite) + '\n';
        }
    }
    printBytes(text);
}

void CheckOutput::end(Summary const& summary) {
    if (options_.isJson) printBytes(isFirst_ ? "]\n" : "\n]\n");
    flushOutput();
    std::string const text = summaryText(summary);
    if (options_.isCsv || options_.isJson) {
        reportScriptError(utf16FromUtf8(text));
    } else {
        printBytes(text);
    }
}

}  // namespace kx
