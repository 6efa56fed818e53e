#include "worker/WorkerColumns.h"

#include <array>
#include <utility>

#include "columns/ColumnReply.h"
#include "host/HostBackend.h"

namespace kx {

CommandResult WorkerColumns::compile(MessageReader& request) {
    columns_ = std::make_unique<KxJsColumns>(host_);
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
    ColumnArea area(count);
    takeValues(request, area, count);
    std::byte* const goal = takePlace(request, area, 0);
    if (type == ResultType::texts) {
        KxJsColumns::JoinedTexts results;
        auto const outcome = columns_->evaluate(count, results);
        putOutcome(reply, outcome);
        for (std::size_t i = 0; i < outcome.records; ++i) reply.putText(results[i]);
    } else if (type == ResultType::numbers) {
        putOutcome(reply, columns_->evaluate(count, reinterpret_cast<double*>(goal)));
    } else {
        putOutcome(reply, columns_->evaluate(count, reinterpret_cast<bool*>(goal)));
    }
}

/// Where values of `size` bytes each are.
std::byte* WorkerColumns::takePlace(MessageReader& request, ColumnArea& area, std::size_t size) {
    auto const place = request.take<std::uint64_t>();
    return place == kInArea ? area_ + area.take(size) : shared_ + place;
}

void WorkerColumns::takeValues(MessageReader& request, ColumnArea& area, std::size_t count) {
    constexpr std::array<std::size_t, 3> kSizes = {sizeof(double), sizeof(std::int32_t), 1};
    for (Column& column : bound_) {
        if (column.type < Type::texts) {
            bind(column, takePlace(request, area, kSizes[static_cast<std::size_t>(column.type)]));
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

void WorkerColumns::putOutcome(MessageWriter& reply, KxJsColumns::Outcome const& outcome) const {
    putColumnReply(reply, outcome, host_._backend().endReason());
}

}  // namespace kx
