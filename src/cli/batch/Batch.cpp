#include "cli/batch/Batch.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

#include "cli/batch/BatchColumns.h"
#include "cli/batch/BatchFailures.h"
#include "cli/batch/BatchOutput.h"
#include "cli/batch/CsvReader.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/InputFile.h"
#include "cli/io/MessageText.h"
#include "cli/io/Output.h"
#include "cli/io/ProgressLine.h"
#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"
#include "text/Utf8.h"

namespace kx {
namespace {

/// The size of a block: many records for each evaluation, in little memory.
constexpr std::size_t kBlockBytes = std::size_t{4} << 20;

/// One job, from opening the files to the exit status.
class Batch {
  public:
    explicit Batch(BatchOptions const& options)
        : options_(options),
          input_(options.input),
          reader_(input_.descriptor(), input_.name(), options.delimiter),
          output_(options.output, options.delimiter),
          progress_(input_.size()),
          host_(makeHost(options.limits)),
          formula_(decodeArgument(options.formula, "formula")) {
        setLimits(host_, options.limits);
        host_.initialize();
    }

    ExitStatus run() {
        if (output_.isStandardOutput() && input_.isStandardOutput()) {
            throw UsageError(input_.name() + ": the output would go into the file that is read");
        }
        reader_.readHeader(header_);
        if (header_.empty()) throw WorkError(input_.name() + ": there is no header");
        if (std::find(header_.begin(), header_.end(), options_.resultName) != header_.end()) {
            throw UsageError("--as " + quotable(options_.resultName) +
                             ": there is such a column already");
        }
        if (!readFormula()) return ExitStatus::failed;
        CsvBlock block = reader_.next(kBlockBytes);
        BatchColumns columns(header_, source_, options_.types);
        columns.guessTypes(block);
        KxJsColumns evaluation(host_);
        evaluation.setProgress([this](std::size_t records) {
            progress_.show(records_ + records, reader_.bytesRead());
            return true;
        });
        columns.load(block, evaluation);
        std::u16string error;
        if (!evaluation.compile(source_, error)) {
            failures_->reportFormula(error, host_.lastFailure());
            return ExitStatus::failed;
        }
        output_.writeHeader(header_, options_.resultName, reader_);
        while (!block.empty()) {
            evaluate(block, columns, evaluation);
            block = reader_.next(kBlockBytes);
            if (!block.empty()) columns.load(block, evaluation);
        }
        output_.commit();
        return hasFailed_ ? ExitStatus::failed : ExitStatus::ok;
    }

  private:
    /// Makes the JavaScript of the formula; false, after a report, where there is none.
    bool readFormula() {
        std::vector<std::u16string> keys;
        for (std::string const& name : header_) keys.push_back(utf16FromUtf8(name));
        FormulaReader const reader(options_.language, keys);
        reader.prepare(host_);
        FormulaRun const read = reader.read(formula_);
        if (read.hasFailed) reportScriptError(failureReport(formula_, read, nullptr));
        source_ = read.javaScript;
        failures_.emplace(formula_, source_);
        return !read.hasFailed;
    }

    void evaluate(CsvBlock const& block, BatchColumns const& columns, KxJsColumns& evaluation) {
        std::vector<std::size_t> const& loaded = columns.loaded();
        results_.resize(loaded.size());
        auto const start = std::chrono::steady_clock::now();
        if (hasTimeLimit()) host_.setTimeLimit(restOfTime());
        KxJsColumns::Outcome const outcome = evaluation.evaluate(loaded.size(), results_.data());
        timeUsed_ += std::chrono::steady_clock::now() - start;
        if (!outcome.error.empty()) {
            throw WorkError(placeOf(block, loaded[outcome.records]) + ": " + endOf(outcome));
        }
        if (!outcome.failures.empty() || !columns.refused().empty()) {
            hasFailed_ = true;
            progress_.clear();
            failures_->reportRecords(block, columns, outcome.failures);
        }
        output_.writeRecords(block, loaded, results_);
        records_ += block.size();
        progress_.show(records_, reader_.bytesRead());
    }

    bool hasTimeLimit() const { return options_.limits.time.count() > 0; }

    /// The time that is left for the next block. At least 1 ms, since 0 would mean no limit.
    std::chrono::milliseconds restOfTime() const {
        auto const rest =
            std::chrono::ceil<std::chrono::milliseconds>(options_.limits.time - timeUsed_);
        return std::max(rest, std::chrono::milliseconds(1));
    }

    std::string endOf(KxJsColumns::Outcome const& outcome) const {
        if (!hasTimeLimit() || timeUsed_ < options_.limits.time) {
            return utf8FromUtf16(outcome.error);
        }
        return "The formula was ended: all records together took longer than the time limit of " +
               std::to_string(options_.limits.time.count()) + " ms";
    }

    BatchOptions const& options_;
    InputFile input_;
    CsvReader reader_;
    BatchOutput output_;
    ProgressLine progress_;
    KxJsParser host_;
    std::chrono::steady_clock::duration timeUsed_{};
    std::u16string formula_;
    std::u16string source_;
    std::optional<BatchFailures> failures_;
    std::vector<std::string> header_;
    std::vector<std::u16string> results_;
    std::size_t records_ = 0;
    bool hasFailed_ = false;
};

}  // namespace

ExitStatus runBatch(BatchOptions const& options) { return Batch(options).run(); }

}  // namespace kx
