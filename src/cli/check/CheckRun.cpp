#include "cli/check/CheckRun.h"

#include <algorithm>
#include <optional>

#include "cli/batch/CsvReader.h"
#include "cli/check/CheckOutput.h"
#include "cli/check/HtmlReport.h"
#include "cli/check/Summary.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/AtomicFile.h"
#include "cli/io/InputFile.h"
#include "cli/io/LineReader.h"
#include "cli/io/MessageText.h"
#include "cli/io/Output.h"
#include "cli/io/ProgressLine.h"
#include "text/Utf8.h"

namespace kx {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{4} << 20;

class CheckRun {
  public:
    CheckRun(CheckOptions const& options, KxJsTranslator const& translator)
        : options_(options), translator_(translator), output_(options) {
        if (!options.html.empty()) report_.emplace();
    }

    ExitStatus run() {
        bool const isFile = !options_.input.empty() || !options_.column.empty();
        if (isFile && !options_.formulas.empty()) {
            throw UsageError("formulas come from a file or from the command line, not from both");
        }
        output_.begin();
        if (!isFile) {
            std::size_t number = 0;
            forEachFormula(options_.formulas,
                           [&](Formula const& formula) { checkLine(formula.text, ++number); });
        } else {
            readFile();
        }
        output_.end(summary_);
        if (report_) {
            std::string const page = report_->finish(summary_);
            if (options_.html == "-" || isStandardOutput(options_.html)) {
                printBytes(page);
            } else {
                replaceFile(options_.html, page);
            }
        }
        flushOutput();
        return summary_.keepsAll() ? ExitStatus::ok : ExitStatus::failed;
    }

  private:
    void readFile() {
        InputFile const input(options_.input);
        progress_.emplace(input.size());
        if (options_.column.empty()) {
            readLines(input);
        } else {
            readColumn(input);
        }
        progress_.reset();
    }

    void readLines(InputFile const& input) {
        LineReader lines(input.descriptor(), [] { flushOutput(); });
        std::size_t number = 0;
        std::size_t bytes = 0;
        for (std::string line; lines.next(line);) {
            bytes += line.size() + 1;
            checkBytes(line, ++number, bytes, input.name());
        }
    }

    void readColumn(InputFile const& input) {
        CsvReader reader(input.descriptor(), input.name(), ',');
        std::vector<std::string> header;
        reader.readHeader(header);
        auto const column = std::find(header.begin(), header.end(), options_.column);
        if (column == header.end()) {
            throw WorkError(input.name() + ": there is no column " + quotable(options_.column));
        }
        auto const index = static_cast<std::size_t>(column - header.begin());
        for (CsvBlock block = reader.next(kBlockBytes); !block.empty();
             block = reader.next(kBlockBytes)) {
            for (std::size_t i = 0; i < block.size(); ++i) {
                checkBytes(block.cell(i, index), block.line(i), reader.bytesRead(), input.name());
            }
        }
    }

    /// Blank lines are no formulas.
    void checkLine(std::u16string const& formula, std::size_t line) {
        if (formula.find_first_not_of(u" \t\r") != std::u16string::npos) check(formula, line);
    }

    void checkBytes(std::string_view bytes, std::size_t line, std::size_t read,
                    std::string const& name) {
        std::u16string formula;
        try {
            formula = utf16FromUtf8(bytes);
        } catch (InvalidUtf8 const&) {
            throw WorkError(name + ", line " + std::to_string(line) + ": not UTF-8");
        }
        checkLine(formula, line);
        progress_->show(summary_.count(), read);
    }

    void check(std::u16string const& formula, std::size_t line) {
        KxJsTranslator::Check const check = translator_.check(formula);
        summary_.add(check);
        bool const isShown = options_.isAll || check.verdict != KxJsTranslator::Verdict::SAME;
        if (isShown && progress_ && !options_.isCsv && !options_.isJson) progress_->clear();
        if (isShown) output_.write(formula, line, check);
        if (report_) report_->add(formula, line, check);
    }

    CheckOptions const& options_;
    KxJsTranslator const& translator_;
    CheckOutput output_;
    Summary summary_;
    std::optional<HtmlReport> report_;
    std::optional<ProgressLine> progress_;
};

}  // namespace

ExitStatus runCheck(CheckOptions const& options, KxJsTranslator const& translator) {
    return CheckRun(options, translator).run();
}

}  // namespace kx
