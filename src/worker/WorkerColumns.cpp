#include "worker/WorkerColumns.h"

#include <utility>
#include <variant>

#include "columns/Column.h"
#include "columns/ColumnReply.h"
#include "columns/ColumnTexts.h"
#include "host/HostBackend.h"

namespace kx {

namespace {

using Clock = std::chrono::steady_clock;

/// After so long the application hears of the records that are done.
constexpr std::chrono::milliseconds kBlockTime{10};

}  // namespace

CommandResult WorkerColumns::compile(MessageReader& request) {
    columns_ = std::make_unique<KxJsColumns>(host_);
    columns_->setProgress([this](std::size_t) { return Clock::now() < blockEnd_; });
    bound_.clear();
    auto const count = request.take<std::uint32_t>();
    for (std::uint32_t i = 0; i < count && request.hasMore(); ++i) {
        std::u16string name = request.takeText();
        bound_.push_back({std::move(name), static_cast<Type>(request.take<std::uint8_t>())});
        bind(bound_.back(), area_);
    }
    CommandResult result;
    std::u16string error;
    result.isDone = columns_->compile(request.takeText(), error);
    if (!result.isDone) result.error = std::move(error);
    return result;
}

void WorkerColumns::run(MessageReader& request, MessageWriter& reply) {
    auto const type = static_cast<ResultType>(request.take<std::uint8_t>());
    auto const count = static_cast<std::size_t>(request.take<std::uint64_t>());
    takeValues(request, count);
    std::byte* const goal = takePlace(request);
    host_.setTimeLimit(std::chrono::milliseconds(request.take<std::int64_t>()));
    if (type == ResultType::texts) {
        KxJsColumns::JoinedTexts results;
        auto const outcome = evaluate(count, results, reply);
        for (std::size_t i = 0; i < outcome.records; ++i) reply.putText(results[i]);
    } else if (type == ResultType::numbers) {
        evaluate(count, reinterpret_cast<double*>(goal), reply);
    } else {
        evaluate(count, reinterpret_cast<bool*>(goal), reply);
    }
}

std::byte* WorkerColumns::takePlace(MessageReader& request) const {
    auto const place = request.take<std::uint64_t>();
    return (place & kInArea) != 0 ? area_ + (place & ~kInArea) : shared_ + place;
}

static_assert(std::variant_size_v<kx::Column::Values> == 5, "WorkerColumns::Type has all types");

void WorkerColumns::takeValues(MessageReader& request, std::size_t count) {
    for (Column& column : bound_) {
        if (column.type < Type::texts) {
            bind(column, takePlace(request));
            continue;
        }
        column.texts.resize(count);
        for (std::u16string& text : column.texts) text = request.takeText();
        bind(column, nullptr);
    }
}

/// `values` are those of a column that has no texts.
void WorkerColumns::bind(Column const& column, std::byte const* values) {
    switch (column.type) {
        case Type::numbers:
            return columns_->bind(column.name, reinterpret_cast<double const*>(values));
        case Type::wholeNumbers:
            return columns_->bind(column.name, reinterpret_cast<std::int32_t const*>(values));
        case Type::booleans:
            return columns_->bind(column.name, reinterpret_cast<bool const*>(values));
        default:
            return columns_->bind(column.name, column.texts.data());
    }
}

template <class Results>
KxJsColumns::Outcome WorkerColumns::evaluate(std::size_t count, Results&& results,
                                             MessageWriter& reply) {
    blockEnd_ = Clock::now() + kBlockTime;
    KxJsColumns::Outcome outcome = columns_->evaluate(count, results);
    // The application goes on with the next record.
    if (outcome.error == kStopped) outcome.error.clear();
    putColumnReply(reply, outcome, host_._backend().endReason());
    return outcome;
}

}  // namespace kx
