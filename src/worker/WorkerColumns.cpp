#include "worker/WorkerColumns.h"

#include <type_traits>
#include <utility>

#include "host/HostBackend.h"

namespace kx {

namespace {

/// Memory for values of the type with that position in Column::Values.
template <class Values>
Values valuesOfType(std::size_t type) {
    switch (type) {
        case 0:
            return std::vector<double>();
        case 1:
            return std::vector<std::int32_t>();
        case 2:
            return std::vector<std::uint8_t>();
        default:
            return std::vector<std::u16string>();
    }
}

}  // namespace

CommandResult WorkerColumns::compile(MessageReader& request) {
    columns_ = std::make_unique<KxJsColumns>(host_);
    memory_.clear();
    auto const count = request.take<std::uint32_t>();
    for (std::uint32_t i = 0; i < count && request.hasMore(); ++i) {
        std::u16string name = request.takeText();
        memory_.push_back({std::move(name), valuesOfType<Values>(request.take<std::uint8_t>())});
        bind(memory_.back());
    }
    CommandResult result;
    std::u16string error;
    result.isDone = columns_->compile(request.takeText(), error);
    if (!result.isDone) result.error = std::move(error);
    return result;
}

void WorkerColumns::run(MessageReader& request, MessageWriter& reply) {
    auto const type = request.take<std::uint8_t>();
    auto const count = static_cast<std::size_t>(request.take<std::uint64_t>());
    takeValues(request, count);
    for (Column const& column : memory_) bind(column);
    if (type == 0) {
        std::vector<std::u16string> results(count);
        auto const outcome = columns_->evaluate(count, results.data());
        putOutcome(reply, outcome);
        for (std::size_t i = 0; i < outcome.records; ++i) reply.putText(results[i]);
    } else if (type == 1) {
        std::vector<double> results(count);
        auto const outcome = columns_->evaluate(count, results.data());
        putOutcome(reply, outcome);
        reply.putArray(results.data(), outcome.records);
    } else {
        auto const results = std::make_unique<bool[]>(count);
        auto const outcome = columns_->evaluate(count, results.get());
        putOutcome(reply, outcome);
        reply.putArray(results.get(), outcome.records);
    }
}

void WorkerColumns::takeValues(MessageReader& request, std::size_t count) {
    for (Column& column : memory_) {
        std::visit(
            [&](auto& values) {
                values.resize(count);
                if constexpr (std::is_same_v<decltype(values), std::vector<std::u16string>&>) {
                    for (std::u16string& value : values) value = request.takeText();
                } else {
                    request.takeArray(values.data(), count);
                }
            },
            column.values);
    }
}

void WorkerColumns::bind(Column const& column) {
    std::visit(
        [&](auto const& values) {
            if constexpr (std::is_same_v<decltype(values), std::vector<std::uint8_t> const&>) {
                static_assert(sizeof(bool) == 1);
                columns_->bind(column.name, reinterpret_cast<bool const*>(values.data()));
            } else {
                columns_->bind(column.name, values.data());
            }
        },
        column.values);
}

void WorkerColumns::putOutcome(MessageWriter& reply, KxJsColumns::Outcome const& outcome) const {
    reply.put(static_cast<std::uint64_t>(outcome.records));
    reply.putText(outcome.error);
    reply.put(host_._backend().endReason());
    reply.put(static_cast<std::uint64_t>(outcome.failures.size()));
    for (KxJsColumns::Failure const& failure : outcome.failures) {
        reply.put(static_cast<std::uint64_t>(failure.record));
        reply.putText(failure.error.str());
        reply.putText(failure.message.str());
        reply.put(failure.line);
        reply.put(failure.column);
        reply.put(failure.endColumn);
    }
}

}  // namespace kx
