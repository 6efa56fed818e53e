#include "columns/IsolatedColumns.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include "columns/ColumnReply.h"
#include "columns/ColumnTexts.h"
#include "host/EndText.h"
#include "host/KxJsParser.h"
#include "isolated/ColumnArea.h"

namespace kx {

namespace {

using Clock = std::chrono::steady_clock;

/// A block of records may take so long, since the progress function is called between blocks.
constexpr std::chrono::milliseconds kBlockTime{10};
constexpr std::size_t kFirstBlock = 64;
constexpr Clock::duration kClockStep = std::chrono::microseconds(1);
/// From one block to the next.
constexpr std::size_t kLargestGrowth = 4;

/// More records than any memory holds.
constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();
constexpr std::u16string_view kTooMany = u"There are too many columns for an isolated host";

/// The size of a block after one of `size` records took `time`.
std::size_t nextSize(std::size_t size, Clock::duration time) {
    if (time >= kBlockTime) return std::max<std::size_t>(size / 2, 1);
    auto const fitting = static_cast<std::size_t>(kBlockTime / 2 / std::max(time, kClockStep));
    return size * std::clamp<std::size_t>(fitting, 1, kLargestGrowth);
}

/// Bytes of a value in the area; none for texts, which are in the messages.
std::size_t sizeIn(Column const& column) {
    constexpr std::array<std::size_t, 5> kSizes = {sizeof(double), sizeof(std::int32_t), 1, 0, 0};
    return kSizes[column.values.index()];
}

}  // namespace

struct IsolatedColumns::Evaluation {
    std::size_t count;
    ColumnResults const& results;
    KxJsColumns::Outcome& outcome;
    std::chrono::milliseconds limit;
    Clock::time_point start = Clock::now();
    RecentTexts texts = {};

    /// At least 1 ms, so that there is a limit where there was one.
    std::chrono::milliseconds timeLeft() const {
        if (limit <= std::chrono::milliseconds::zero()) return limit;
        auto const gone =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
        return std::max(limit - gone, std::chrono::milliseconds(1));
    }
};

IsolatedColumns::IsolatedColumns(KxJsParser& parser, IsolatedHost& host)
    : ColumnsBackend(parser), host_(host), number_(host.log().enterColumns()) {}

IsolatedColumns::~IsolatedColumns() { host_.log().leaveColumns(number_); }

bool IsolatedColumns::compile(std::u16string const& source, std::u16string& error) {
    if (isEvaluating() || !host_.isOnItsThread()) {
        error = isEvaluating() ? kBusy : kWrongThread;
        return false;
    }
    isCompiled_ = false;
    if (mostRecords(kAll, ColumnResults()) == 0) {
        error = kTooMany;
        return false;
    }
    if (!bindToHost(error)) return false;
    source_ = source;
    resets_ = host_.resets();
    isCompiled_ = host_.prepare(error) && compileInWorker(error);
    return isCompiled_;
}

/// Adds to the prepared request, and sends it.
bool IsolatedColumns::compileInWorker(std::u16string& error) {
    MessageWriter& request = host_.request();
    request.put(Command::compileColumns);
    request.put(number_);
    request.put(static_cast<std::uint32_t>(columns().size()));
    for (Column const& column : columns()) {
        request.putText(column.name);
        request.put(static_cast<std::uint8_t>(column.values.index()));
    }
    request.putText(source_);
    auto reader = host_.send(host_.log().timeLimit(), error);
    if (!reader) return false;
    CommandResult result = takeResult(*reader);
    if (!host_.checkEnd(*reader, error)) return false;
    host_.conclude(result, error);
    worker_ = result.isDone ? host_.workers() : 0;
    return result.isDone;
}

KxJsColumns::Outcome IsolatedColumns::evaluate(std::size_t count, ColumnResults const& results) {
    KxJsColumns::Outcome outcome;
    if (!host_.isOnItsThread()) {
        outcome.error = kWrongThread;
    } else if (isEvaluating()) {
        outcome.error = kBusy;
    } else if (!isCompiled_ || resets_ != host_.resets()) {
        outcome.error = kNotCompiled;
    }
    if (!outcome.error.empty()) return outcome;
    FlagScope const evaluating = beginEvaluation();
    host_.beginEvaluation();
    Evaluation evaluation{count, results, outcome, host_.log().timeLimit()};
    std::size_t const largest = mostRecords(count, results);
    if (largest == 0) outcome.error = kTooMany;
    std::size_t size = std::min(kFirstBlock, largest);
    while (outcome.records < count && largest != 0) {
        Clock::time_point const start = Clock::now();
        bool const isDone = runBlock(evaluation, std::min(count, outcome.records + size));
        if (!isDone || !goesOn(evaluation)) break;
        size = std::min(nextSize(size, Clock::now() - start), largest);
    }
    // Blocks had shorter limits: the worker is told the host's again.
    host_.log().setTimeLimit(host_.log().timeLimit());
    return outcome;
}

/// Evaluates the records from the next one up to `last`. False where the evaluation was ended.
bool IsolatedColumns::runBlock(Evaluation& evaluation, std::size_t last) {
    std::u16string& error = evaluation.outcome.error;
    std::size_t const first = evaluation.outcome.records;
    if (!host_.prepare(error)) return false;
    if (worker_ != host_.workers()) {
        if (!compileInWorker(error) || !host_.prepare(error)) return false;
    }
    std::chrono::milliseconds const left = evaluation.timeLeft();
    MessageWriter& request = host_.request();
    request.put(Command::timeLimit);
    request.put(static_cast<std::int64_t>(left.count()));
    request.put(Command::runColumns);
    request.put(number_);
    request.put(static_cast<std::uint8_t>(evaluation.results.index()));
    request.put(static_cast<std::uint64_t>(last - first));
    std::byte* const results = putValues(request, evaluation.results, first, last);
    auto reader = host_.send(left, error);
    if (reader) {
        std::size_t const failures = evaluation.outcome.failures.size();
        bool const isDone = takeBlock(*reader, evaluation, last, results);
        if (!host_.checkEnd(*reader, error)) {
            evaluation.outcome.records = first;
            evaluation.outcome.failures.resize(failures);
            return false;
        }
        if (evaluation.outcome.records > 0) bindRecord(evaluation.outcome.records - 1);
        if (isDone) return true;
    }
    if (host_.endReason() == EndReason::timeLimit) error = timeLimitText(evaluation.limit);
    return false;
}

/// How many records a block may have: the values that are copied have to fit into the area. 0 where
/// there are too many columns. `sharing` is how many records are looked for in shared memory.
std::size_t IsolatedColumns::mostRecords(std::size_t sharing, ColumnResults const& results) const {
    auto const isCopied = [&](auto const& values) {
        return placeOf(values, 0, sharing) == kInArea;
    };
    std::size_t sizes = std::visit(isCopied, results) ? sizeof(double) : 0;
    for (Column const& column : columns()) {
        if (std::visit(isCopied, column.values)) sizes += sizeIn(column);
    }
    return ColumnArea::mostRecords(columns().size() + 1, sizes);
}

/// Where the values of a block are in the memory that the host shares; kInArea where they are not
/// there as a whole, or are no numbers: others can be damaged.
template <class T>
std::uint64_t IsolatedColumns::placeOf(T const* values, std::size_t first, std::size_t last) const {
    if constexpr (std::is_same_v<T, double> || std::is_same_v<T, std::int32_t>) {
        std::span<std::byte> const shared = host_.sharedMemory();
        auto const begin = reinterpret_cast<std::uintptr_t>(values + first);
        auto const memory = reinterpret_cast<std::uintptr_t>(shared.data());
        std::uintptr_t const offset = begin - memory;
        bool const isInside = begin >= memory && offset < shared.size() &&
                              last - first <= (shared.size() - offset) / sizeof(T);
        return isInside ? offset : kInArea;
    }
    return kInArea;
}

std::uint64_t IsolatedColumns::placeOf(TextResults const& /*results*/, std::size_t /*first*/,
                                       std::size_t /*last*/) const {
    return kInArea;
}

/// Hands over the values of a block: texts in the message, numbers where they are if the worker can
/// read them there, all others in the area. Returns where in the area the results will be; null
/// where they will be where the caller wants them.
std::byte* IsolatedColumns::putValues(MessageWriter& writer, ColumnResults const& results,
                                      std::size_t first, std::size_t last) const {
    ColumnArea area(last - first);
    for (Column const& column : columns()) {
        if (column.isText()) {
            for (std::size_t record = first; record < last; ++record) {
                writer.putText(column.text(record).substr(0, KxJsVariable::kMaxTextLength));
            }
            continue;
        }
        std::visit(
            [&](auto const* values) {
                using Value = std::remove_cvref_t<decltype(*values)>;
                if constexpr (std::is_arithmetic_v<Value>) {
                    std::uint64_t const place = placeOf(values, first, last);
                    writer.put(place);
                    if (place != kInArea) return;
                    std::memcpy(host_.area() + area.take(sizeof(Value)), values + first,
                                (last - first) * sizeof(Value));
                }
            },
            column.values);
    }
    std::uint64_t const place =
        std::visit([&](auto const& values) { return placeOf(values, first, last); }, results);
    writer.put(place);
    return place == kInArea ? host_.area() + area.take(0) : nullptr;
}

/// Takes the results of a block. False where the worker has ended it early.
bool IsolatedColumns::takeBlock(MessageReader& reader, Evaluation& evaluation, std::size_t last,
                                std::byte const* results) {
    KxJsColumns::Outcome& outcome = evaluation.outcome;
    std::size_t const first = outcome.records;
    ColumnReply reply = takeColumnReply(reader, last - first, evaluation.texts);
    for (KxJsColumns::Failure& failure : reply.failures) {
        failure.record += first;
        outcome.failures.push_back(std::move(failure));
    }
    takeResults(reader, evaluation, reply.records, results);
    outcome.records = first + reply.records;
    if (reply.error.empty() && outcome.records == last) return true;
    outcome.error = reply.error;
    if (reply.reason == EndReason::timeLimit) outcome.error = timeLimitText(evaluation.limit);
    return false;
}

void IsolatedColumns::takeResults(MessageReader& reader, Evaluation const& evaluation,
                                  std::size_t records, std::byte const* results) const {
    std::size_t const first = evaluation.outcome.records;
    if (auto const* const texts = std::get_if<TextResults>(&evaluation.results)) {
        for (std::size_t i = 0; i < records; ++i) texts->put(first + i, reader.takeText());
    } else if (auto* const* const numbers = std::get_if<double*>(&evaluation.results)) {
        if (results != nullptr) std::memcpy(*numbers + first, results, records * sizeof(double));
    } else {
        bool* const values = std::get<bool*>(evaluation.results) + first;
        // A byte that is neither 0 nor 1 would be no truth value.
        for (std::size_t i = 0; i < records; ++i) values[i] = results[i] != std::byte{0};
    }
}

/// Between two blocks. False where the evaluation was ended.
bool IsolatedColumns::goesOn(Evaluation& evaluation) {
    KxJsColumns::Outcome& outcome = evaluation.outcome;
    bool const isWanted = !progress() || progress()(outcome.records);
    if (outcome.records == evaluation.count) return false;
    if (!isWanted) {
        outcome.error = kStopped;
    } else if (resets_ != host_.resets()) {
        outcome.error = kNotCompiled;
    } else if (host_.isTerminated()) {
        outcome.error = kTerminatedText;
    } else if (evaluation.limit > std::chrono::milliseconds::zero() &&
               Clock::now() - evaluation.start > evaluation.limit) {
        outcome.error = timeLimitText(evaluation.limit);
    }
    return outcome.error.empty();
}

/// Leaves the columns as variables of the host, with the values of `record`.
void IsolatedColumns::bindRecord(std::size_t record) {
    for (Column const& column : columns()) parser().addSetVariable(column.at(record));
}

}  // namespace kx
