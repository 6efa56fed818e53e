#include "columns/IsolatedColumns.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include "columns/ColumnReply.h"
#include "columns/ColumnTexts.h"
#include "columns/RecentTexts.h"
#include "host/EndText.h"
#include "host/KxJsParser.h"
#include "isolated/ColumnArea.h"

namespace kx {

namespace {

using Clock = std::chrono::steady_clock;

/// Where a progress function wants to hear of them, blocks grow from this one on.
constexpr std::size_t kFirstBlock = 64;
constexpr std::size_t kGrowth = 4;
/// The most texts of a block: they take time in both processes, and are taken again where the
/// worker ends the block early.
constexpr std::size_t kMostTexts = 2048;

/// More records than any memory holds.
constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();
constexpr std::u16string_view kTooMany = u"There are too many columns for an isolated host";

/// Bytes of a value in the area; none for texts, which are in the messages.
std::size_t sizeInArea(Column const& column) {
    return std::visit(
        []<class T>(T const* /*values*/) { return std::is_arithmetic_v<T> ? sizeof(T) : 0; },
        column.values);
}

}  // namespace

struct IsolatedColumns::Evaluation {
    std::size_t count;
    ColumnResults const& results;
    KxJsColumns::Outcome& outcome;
    std::chrono::milliseconds limit;
    Clock::time_point start = Clock::now();
    RecentTexts texts = {};
    std::size_t half = 0;  // of the area, where the values of the last request are

    /// At least 1 ms, so that there is a limit where there was one.
    std::chrono::milliseconds timeLeft() const {
        if (limit <= std::chrono::milliseconds::zero()) return limit;
        auto const gone =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
        return std::max(limit - gone, std::chrono::milliseconds(1));
    }
};

/// Records that are evaluated by one request.
struct IsolatedColumns::Block {
    std::size_t first = kAll;
    std::size_t last = kAll;
    std::byte const* results = nullptr;  // in the area; null where they are in place
    std::size_t failures = 0;            // of earlier records
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
    if (count != 0) run(evaluation);
    if (!progress()) bindLastRecord(outcome);
    return outcome;
}

/// Evaluates records until all are done or the outcome has an error.
void IsolatedColumns::run(Evaluation& evaluation) {
    KxJsColumns::Outcome& outcome = evaluation.outcome;
    std::size_t const largest = mostRecords(evaluation.count, evaluation.results);
    if (largest == 0) {
        outcome.error = kTooMany;
        return;
    }
    std::size_t size = progress() ? std::min(kFirstBlock, largest) : largest;
    if (!prepare(outcome.error)) return;
    Block block = writeRequest(evaluation, 0, size);
    beginCall(evaluation);
    while (true) {
        // A progress function may change what the next block sees, so its values are read after
        // it.
        Block ahead;
        if (!progress() && block.last < evaluation.count) {
            host_.request().clear();
            ahead = writeRequest(evaluation, block.last, size);
        }
        auto reader = endCall(evaluation);
        if (!reader) return;
        takeReply(*reader, evaluation, block);
        // The worker goes on while the results are taken.
        bool const isAhead = ahead.first == outcome.records && goesOn(evaluation);
        if (isAhead) beginCall(evaluation);
        if (!takeResults(*reader, evaluation, block)) return;
        if (progress()) bindLastRecord(outcome);
        if (!isAhead) {
            if (!goesOn(evaluation) || !prepare(outcome.error)) return;
            size = size > largest / kGrowth ? largest : size * kGrowth;
            ahead = writeRequest(evaluation, outcome.records, size);
            beginCall(evaluation);
        }
        block = ahead;
    }
}

/// Begins a request to a worker that has the formula.
bool IsolatedColumns::prepare(std::u16string& error) {
    if (!host_.prepare(error)) return false;
    return worker_ == host_.workers() || (compileInWorker(error) && host_.prepare(error));
}

/// Adds to the request that the records from `first` on are to be evaluated, `size` or as many as
/// there are. What is left to add is the time limit.
IsolatedColumns::Block IsolatedColumns::writeRequest(Evaluation& evaluation, std::size_t first,
                                                     std::size_t size) const {
    Block block;
    block.first = first;
    block.last = first + std::min(size, evaluation.count - first);
    evaluation.half = 1 - evaluation.half;
    MessageWriter& request = host_.request();
    request.put(Command::runColumns);
    request.put(number_);
    request.put(static_cast<std::uint8_t>(evaluation.results.index()));
    request.put(static_cast<std::uint64_t>(block.last - first));
    putValues(request, evaluation, block);
    return block;
}

/// Sends the request that was written.
void IsolatedColumns::beginCall(Evaluation const& evaluation) {
    std::chrono::milliseconds const left = evaluation.timeLeft();
    host_.request().put(static_cast<std::int64_t>(left.count()));
    host_.beginCall(left);
    // A terminate() between goesOn() and beginCall() has found no call to end.
    if (host_.isTerminated()) host_.terminate();
    // The request has a limit of its own: the worker is told the host's again.
    host_.log().setTimeLimit(host_.log().timeLimit());
}

/// Waits for the reply about a block.
std::optional<MessageReader> IsolatedColumns::endCall(Evaluation& evaluation) {
    auto reader = host_.endCall(evaluation.limit, evaluation.outcome.error);
    if (!reader && host_.endReason() == EndReason::timeLimit) {
        evaluation.outcome.error = timeLimitText(evaluation.limit);
    }
    return reader;
}

/// How many records a block may have: the values that are copied have to fit into the area. 0 where
/// there are too many columns. `sharing` is how many records are looked for in shared memory.
std::size_t IsolatedColumns::mostRecords(std::size_t sharing, ColumnResults const& results) const {
    auto const isCopied = [&](auto const& values) {
        return placeOf(values, 0, sharing) == kInArea;
    };
    std::size_t sizes = std::visit(isCopied, results) ? sizeof(double) : 0;
    std::size_t texts = 0;
    for (Column const& column : columns()) {
        if (column.isText()) ++texts;
        if (std::visit(isCopied, column.values)) sizes += sizeInArea(column);
    }
    std::size_t const fitting = ColumnArea::mostRecords(columns().size() + 1, sizes);
    return texts == 0 ? fitting : std::min(fitting, std::max<std::size_t>(kMostTexts / texts, 1));
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
/// read them there, all others in the area. Notes where in the area the results will be.
void IsolatedColumns::putValues(MessageWriter& writer, Evaluation const& evaluation,
                                Block& block) const {
    std::size_t const first = block.first;
    std::size_t const last = block.last;
    ColumnArea area(last - first, evaluation.half);
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
                    if (place != kInArea) return writer.put(place);
                    std::size_t const offset = area.take(sizeof(Value));
                    writer.put(kInArea | offset);
                    std::memcpy(host_.area() + offset, values + first,
                                (last - first) * sizeof(Value));
                }
            },
            column.values);
    }
    std::uint64_t place = std::visit(
        [&](auto const& results) { return placeOf(results, first, last); }, evaluation.results);
    if (place == kInArea) {
        std::size_t const offset = area.take(0);
        block.results = host_.area() + offset;
        place |= offset;
    }
    writer.put(place);
}

/// Takes what the worker says of a block, up to the results.
void IsolatedColumns::takeReply(MessageReader& reader, Evaluation& evaluation, Block& block) {
    KxJsColumns::Outcome& outcome = evaluation.outcome;
    ColumnReply reply = takeColumnReply(reader, block.last - block.first, evaluation.texts);
    block.failures = outcome.failures.size();
    for (KxJsColumns::Failure& failure : reply.failures) {
        failure.record += block.first;
        outcome.failures.push_back(std::move(failure));
    }
    outcome.records = block.first + reply.records;
    outcome.error = std::move(reply.error);
    if (reply.reason == EndReason::timeLimit) outcome.error = timeLimitText(evaluation.limit);
}

/// Takes the results of a block. False where the reply was not as a worker writes it: then nothing
/// counts that it says.
bool IsolatedColumns::takeResults(MessageReader& reader, Evaluation const& evaluation,
                                  Block const& block) {
    KxJsColumns::Outcome& outcome = evaluation.outcome;
    std::size_t const records = outcome.records - block.first;
    if (auto const* const texts = std::get_if<TextResults>(&evaluation.results)) {
        for (std::size_t i = 0; i < records; ++i) texts->put(block.first + i, reader.takeText());
    } else if (auto* const* const numbers = std::get_if<double*>(&evaluation.results)) {
        if (block.results != nullptr) {
            std::memcpy(*numbers + block.first, block.results, records * sizeof(double));
        }
    } else {
        bool* const values = std::get<bool*>(evaluation.results) + block.first;
        // A byte that is neither 0 nor 1 would be no truth value.
        for (std::size_t i = 0; i < records; ++i) values[i] = block.results[i] != std::byte{0};
    }
    if (host_.checkEnd(reader, outcome.error)) return true;
    outcome.records = block.first;
    outcome.failures.resize(block.failures);
    return false;
}

/// Between two blocks: calls the progress function. False where the evaluation is done or was
/// ended.
bool IsolatedColumns::goesOn(Evaluation& evaluation) {
    KxJsColumns::Outcome& outcome = evaluation.outcome;
    if (!outcome.error.empty()) return false;
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

/// Leaves the columns as variables of the host, with the values of the last record that was
/// evaluated.
void IsolatedColumns::bindLastRecord(KxJsColumns::Outcome const& outcome) {
    if (outcome.records == 0) return;
    for (Column const& column : columns()) parser().addSetVariable(column.at(outcome.records - 1));
}

}  // namespace kx
