#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "cli/batch/BatchColumns.h"
#include "cli/batch/BatchFailures.h"
#include "cli/batch/CsvReader.h"
#include "cli/batch/CsvText.h"
#include "cli/commands/Commands.h"
#include "cli/formula/FormulaSource.h"
#include "cli/io/AtomicFile.h"
#include "cli/io/MessageText.h"
#include "cli/io/Output.h"
#include "cli/io/ProgressLine.h"
#include "cli/io/Utf8.h"
#include "columns/KxJsColumns.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace kx {
namespace {

/// What is read at a time: enough for columns to be worth it, little beside memory.
constexpr std::size_t kBlockBytes = std::size_t{4} << 20;

class InputFile {
  public:
    explicit InputFile(std::string const& path)
        : descriptor_(path.empty() ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
          name_(path.empty() ? "standard input" : path) {
        if (descriptor_ >= 0) return;
        throw WorkError("cannot read " + path + ": " + std::generic_category().message(errno));
    }
    InputFile(InputFile const&) = delete;
    InputFile& operator=(InputFile const&) = delete;
    ~InputFile() {
        if (descriptor_ != STDIN_FILENO) ::close(descriptor_);
    }

    int descriptor() const { return descriptor_; }
    std::string const& name() const { return name_; }

    /// Whether what goes to standard output is appended to what is still to be read.
    bool isStandardOutput() const {
        struct stat status {};
        struct stat standard {};
        return ::fstat(descriptor_, &status) == 0 && ::fstat(STDOUT_FILENO, &standard) == 0 &&
               S_ISREG(status.st_mode) && status.st_dev == standard.st_dev &&
               status.st_ino == standard.st_ino;
    }

    /// 0 for anything but a file.
    std::size_t size() const {
        struct stat status {};
        bool const isFile = ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
        return isFile ? static_cast<std::size_t>(status.st_size) : 0;
    }

  private:
    int descriptor_;
    std::string name_;
};

/// Standard output, or a file that is replaced when everything is written. What is there and is no
/// file, such as a pipe, is written into.
class BatchOutput {
  public:
    explicit BatchOutput(std::string const& path) {
        if (!path.empty() && !kx::isStandardOutput(path)) file_.emplace(path);
    }
    bool isStandardOutput() const { return !file_; }
    void write(std::string_view bytes) {
        if (file_) {
            file_->write(bytes);
        } else {
            printBytes(bytes);
            flushOutput();
        }
    }
    void commit() {
        if (file_) file_->commit();
    }

  private:
    std::optional<FileReplacement> file_;
};

/// One run of the command.
class Batch {
  public:
    explicit Batch(BatchOptions const& options)
        : options_(options),
          input_(options.input),
          reader_(input_.descriptor(), input_.name(), options.delimiter),
          output_(options.output),
          progress_(input_.size()),
          timeLimit_(timeLimitOf(options.limits)),
          formula_(decodeArgument(options.formula, "formula")),
          source_(options.javaScript ? formula_ : Converter::_convert(formula_.c_str())),
          failures_(formula_, source_) {
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
            FormulaRun run;
            run.javaScript = source_;
            run.errorText = error;
            reportScriptError(failureReport(formula_, run, host_.lastFailure()));
            return EXIT_STATUS_FAILED;
        }
        writeHeader();
        while (!block.empty()) {
            evaluate(block, columns, evaluation);
            block = reader_.next(kBlockBytes);
            if (!block.empty()) columns.load(block, evaluation);
        }
        output_.commit();
        return hasFailed_ ? EXIT_STATUS_FAILED : EXIT_STATUS_OK;
    }

  private:
    void writeHeader() {
        std::string line = reader_.hasByteOrderMark() ? "\xEF\xBB\xBF" : "";
        for (std::string const& name : header_) {
            appendCell(line, name, options_.delimiter);
            line += options_.delimiter;
        }
        appendCell(line, options_.resultName, options_.delimiter);
        line += reader_.lineEnd();
        output_.write(line);
    }

    void evaluate(CsvBlock const& block, BatchColumns const& columns, KxJsColumns& evaluation) {
        std::vector<std::size_t> const& taken = columns.taken();
        results_.resize(taken.size());
        auto const start = std::chrono::steady_clock::now();
        if (hasTimeLimit()) host_.setTimeLimit(restOfTime());
        KxJsColumns::Outcome const outcome = evaluation.evaluate(taken.size(), results_.data());
        timeUsed_ += std::chrono::steady_clock::now() - start;
        if (!outcome.error.empty()) {
            throw WorkError(place(block, taken[outcome.records]) + ": " + endOf(outcome));
        }
        report(block, columns, outcome);
        write(block, taken);
        records_ += block.size();
        progress_.show(records_, reader_.bytesRead());
    }

    bool hasTimeLimit() const { return timeLimit_.count() > 0; }

    /// The host's limit holds for one block; the user's, for all of them. Never 0, which is none.
    std::chrono::milliseconds restOfTime() const {
        auto const rest = std::chrono::ceil<std::chrono::milliseconds>(timeLimit_ - timeUsed_);
        return std::max(rest, std::chrono::milliseconds(1));
    }

    std::string endOf(KxJsColumns::Outcome const& outcome) const {
        if (!hasTimeLimit() || timeUsed_ < timeLimit_) return utf8FromUtf16(outcome.error);
        return "The formula was ended: all records together took longer than the time limit of " +
               std::to_string(timeLimit_.count()) + " ms";
    }

    /// Failures in the order of the lines.
    void report(CsvBlock const& block, BatchColumns const& columns,
                KxJsColumns::Outcome const& outcome) {
        auto refused = columns.refused().begin();
        auto const reportRefused = [&](std::size_t before) {
            for (; refused != columns.refused().end() && refused->first < before; ++refused) {
                reportError(place(block, refused->first) + ": " + refused->second);
            }
        };
        if (outcome.failures.empty() && refused == columns.refused().end()) return;
        hasFailed_ = true;
        progress_.clear();
        for (KxJsColumns::Failure const& failure : outcome.failures) {
            std::size_t const record = columns.taken()[failure.record];
            reportRefused(record);
            failures_.report(place(block, record), failure);
        }
        reportRefused(block.size());
    }

    static std::string place(CsvBlock const& block, std::size_t record) {
        return "line " + std::to_string(block.line(record));
    }

    void write(CsvBlock const& block, std::vector<std::size_t> const& taken) {
        std::string text;
        std::size_t next = 0;
        for (std::size_t record = 0; record < block.size(); ++record) {
            std::size_t const cells = std::max(block.cellCount(record), header_.size());
            for (std::size_t i = 0; i < cells; ++i) {
                appendCell(text, block.cell(record, i), options_.delimiter);
                text += options_.delimiter;
            }
            if (next < taken.size() && taken[next] == record) {
                appendCell(text, utf8FromUtf16(results_[next++]), options_.delimiter);
            }
            text += reader_.lineEnd();
        }
        output_.write(text);
    }

    BatchOptions const& options_;
    InputFile input_;
    CsvReader reader_;
    BatchOutput output_;
    ProgressLine progress_;
    KxJsParser host_;
    std::chrono::milliseconds timeLimit_;
    std::chrono::steady_clock::duration timeUsed_{};
    std::u16string formula_;
    std::u16string source_;
    BatchFailures failures_;
    std::vector<std::string> header_;
    std::vector<std::u16string> results_;
    std::size_t records_ = 0;
    bool hasFailed_ = false;
};

}  // namespace

ExitStatus runBatch(BatchOptions const& options) { return Batch(options).run(); }

}  // namespace kx
