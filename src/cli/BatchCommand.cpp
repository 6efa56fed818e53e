#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "cli/AtomicFile.h"
#include "cli/BatchColumns.h"
#include "cli/BatchFailures.h"
#include "cli/Commands.h"
#include "cli/CsvReader.h"
#include "cli/CsvText.h"
#include "cli/FormulaSource.h"
#include "cli/MessageText.h"
#include "cli/Output.h"
#include "cli/ProgressLine.h"
#include "cli/Utf8.h"
#include "convert/Converter.h"
#include "host/KxJsColumns.h"
#include "host/KxJsParser.h"

namespace kx {
namespace {

/// What is read at a time: enough for columns to be worth it, little beside memory.
constexpr std::size_t kBlockBytes = std::size_t{4} << 20;

class InputFile {
  public:
    explicit InputFile(std::string const& path)
        : _mDescriptor(path.empty() ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
          _mName(path.empty() ? "standard input" : path) {
        if (_mDescriptor >= 0) return;
        throw WorkError("cannot read " + path + ": " + std::generic_category().message(errno));
    }
    InputFile(InputFile const&) = delete;
    InputFile& operator=(InputFile const&) = delete;
    ~InputFile() {
        if (_mDescriptor != STDIN_FILENO) ::close(_mDescriptor);
    }

    int descriptor() const { return _mDescriptor; }
    std::string const& name() const { return _mName; }

    /// Whether what goes to standard output is appended to what is still to be read.
    bool isStandardOutput() const {
        struct stat status {};
        struct stat standard {};
        return ::fstat(_mDescriptor, &status) == 0 && ::fstat(STDOUT_FILENO, &standard) == 0 &&
               S_ISREG(status.st_mode) && status.st_dev == standard.st_dev &&
               status.st_ino == standard.st_ino;
    }

    /// 0 for anything but a file.
    std::size_t size() const {
        struct stat status {};
        bool const isFile = ::fstat(_mDescriptor, &status) == 0 && S_ISREG(status.st_mode);
        return isFile ? static_cast<std::size_t>(status.st_size) : 0;
    }

  private:
    int _mDescriptor;
    std::string _mName;
};

/// Standard output, or a file that is replaced when everything is written. What is there and is no
/// file, such as a pipe, is written into.
class BatchOutput {
  public:
    explicit BatchOutput(std::string const& path) {
        if (!path.empty() && !kx::isStandardOutput(path)) _mFile.emplace(path);
    }
    bool isStandardOutput() const { return !_mFile; }
    void write(std::string_view bytes) {
        if (_mFile) {
            _mFile->write(bytes);
        } else {
            printBytes(bytes);
            flushOutput();
        }
    }
    void commit() {
        if (_mFile) _mFile->commit();
    }

  private:
    std::optional<FileReplacement> _mFile;
};

/// One run of the command.
class Batch {
  public:
    explicit Batch(BatchOptions const& options)
        : _mOptions(options),
          _mInput(options.input),
          _mReader(_mInput.descriptor(), _mInput.name(), options.delimiter),
          _mOutput(options.output),
          _mProgress(_mInput.size()),
          _mTimeLimit(timeLimitOf(options.limits)),
          _mFormula(decodeArgument(options.formula, "formula")),
          _mSource(options.javaScript ? _mFormula : Converter::_convert(_mFormula.c_str())),
          _mFailures(_mFormula, _mSource) {
        setLimits(_mHost, options.limits);
        _mHost.initialize();
    }

    ExitStatus run() {
        if (_mOutput.isStandardOutput() && _mInput.isStandardOutput()) {
            throw UsageError(_mInput.name() + ": the output would go into the file that is read");
        }
        _mReader.readHeader(_mHeader);
        if (_mHeader.empty()) throw WorkError(_mInput.name() + ": there is no header");
        if (std::find(_mHeader.begin(), _mHeader.end(), _mOptions.resultName) != _mHeader.end()) {
            throw UsageError("--as " + quotable(_mOptions.resultName) +
                             ": there is such a column already");
        }
        CsvBlock block = _mReader.next(kBlockBytes);
        BatchColumns columns(_mHeader, _mSource, _mOptions.types);
        columns.guessTypes(block);
        KxJsColumns evaluation(_mHost);
        evaluation.setProgress([this](std::size_t records) {
            _mProgress.show(_mRecords + records, _mReader.bytesRead());
            return true;
        });
        columns.load(block, evaluation);
        std::u16string error;
        if (!evaluation.compile(_mSource, error)) {
            FormulaRun run;
            run.javaScript = _mSource;
            run.errorText = error;
            reportScriptError(failureReport(_mFormula, run, _mHost.lastFailure()));
            return EXIT_STATUS_FAILED;
        }
        writeHeader();
        while (!block.empty()) {
            evaluate(block, columns, evaluation);
            block = _mReader.next(kBlockBytes);
            if (!block.empty()) columns.load(block, evaluation);
        }
        _mOutput.commit();
        return _mHasFailed ? EXIT_STATUS_FAILED : EXIT_STATUS_OK;
    }

  private:
    void writeHeader() {
        std::string line = _mReader.hasByteOrderMark() ? "\xEF\xBB\xBF" : "";
        for (std::string const& name : _mHeader) {
            appendCell(line, name, _mOptions.delimiter);
            line += _mOptions.delimiter;
        }
        appendCell(line, _mOptions.resultName, _mOptions.delimiter);
        line += _mReader.lineEnd();
        _mOutput.write(line);
    }

    void evaluate(CsvBlock const& block, BatchColumns const& columns, KxJsColumns& evaluation) {
        std::vector<std::size_t> const& taken = columns.taken();
        _mResults.resize(taken.size());
        auto const start = std::chrono::steady_clock::now();
        if (hasTimeLimit()) _mHost.setTimeLimit(restOfTime());
        KxJsColumns::Outcome const outcome = evaluation.evaluate(taken.size(), _mResults.data());
        _mTimeUsed += std::chrono::steady_clock::now() - start;
        if (!outcome.error.empty()) {
            throw WorkError(place(block, taken[outcome.records]) + ": " + endOf(outcome));
        }
        report(block, columns, outcome);
        write(block, taken);
        _mRecords += block.size();
        _mProgress.show(_mRecords, _mReader.bytesRead());
    }

    bool hasTimeLimit() const { return _mTimeLimit.count() > 0; }

    /// The host's limit holds for one block; the user's, for all of them. Never 0, which is none.
    std::chrono::milliseconds restOfTime() const {
        auto const rest = std::chrono::ceil<std::chrono::milliseconds>(_mTimeLimit - _mTimeUsed);
        return std::max(rest, std::chrono::milliseconds(1));
    }

    std::string endOf(KxJsColumns::Outcome const& outcome) const {
        if (!hasTimeLimit() || _mTimeUsed < _mTimeLimit) return utf8FromUtf16(outcome.error);
        return "The formula was ended: all records together took longer than the time limit of " +
               std::to_string(_mTimeLimit.count()) + " ms";
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
        _mHasFailed = true;
        _mProgress.clear();
        for (KxJsColumns::Failure const& failure : outcome.failures) {
            std::size_t const record = columns.taken()[failure.record];
            reportRefused(record);
            _mFailures.report(place(block, record), failure);
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
            std::size_t const cells = std::max(block.cellCount(record), _mHeader.size());
            for (std::size_t i = 0; i < cells; ++i) {
                appendCell(text, block.cell(record, i), _mOptions.delimiter);
                text += _mOptions.delimiter;
            }
            if (next < taken.size() && taken[next] == record) {
                appendCell(text, utf8FromUtf16(_mResults[next++]), _mOptions.delimiter);
            }
            text += _mReader.lineEnd();
        }
        _mOutput.write(text);
    }

    BatchOptions const& _mOptions;
    InputFile _mInput;
    CsvReader _mReader;
    BatchOutput _mOutput;
    ProgressLine _mProgress;
    KxJsParser _mHost;
    std::chrono::milliseconds _mTimeLimit;
    std::chrono::steady_clock::duration _mTimeUsed{};
    std::u16string _mFormula;
    std::u16string _mSource;
    BatchFailures _mFailures;
    std::vector<std::string> _mHeader;
    std::vector<std::u16string> _mResults;
    std::size_t _mRecords = 0;
    bool _mHasFailed = false;
};

}  // namespace

ExitStatus runBatch(BatchOptions const& options) { return Batch(options).run(); }

}  // namespace kx
