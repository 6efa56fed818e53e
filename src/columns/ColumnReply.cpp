#include "columns/ColumnReply.h"

#include <cstdint>
#include <limits>
#include <utility>

namespace kx {

namespace {

KxJsColumns::Failure takeFailure(MessageReader& reader, RecentTexts& texts) {
    constexpr auto kLargest = std::numeric_limits<std::int32_t>::max();
    KxJsColumns::Failure failure{};
    failure.record = static_cast<std::size_t>(reader.take<std::uint64_t>());
    failure.error = texts.shared(reader.takeText());
    failure.message = texts.shared(reader.takeText());
    failure.line = reader.takeUpTo(kLargest);
    failure.column = reader.takeUpTo(kLargest);
    failure.endColumn = reader.takeUpTo(kLargest);
    return failure;
}

}  // namespace

void putColumnReply(MessageWriter& writer, KxJsColumns::Outcome const& outcome, EndReason reason) {
    writer.put(static_cast<std::uint64_t>(outcome.records));
    writer.putText(outcome.error);
    writer.put(reason);
    writer.put(static_cast<std::uint64_t>(outcome.failures.size()));
    for (KxJsColumns::Failure const& failure : outcome.failures) {
        writer.put(static_cast<std::uint64_t>(failure.record));
        writer.putText(failure.error.str());
        writer.putText(failure.message.str());
        writer.put(failure.line);
        writer.put(failure.column);
        writer.put(failure.endColumn);
    }
}

ColumnReply takeColumnReply(MessageReader& reader, std::size_t count, RecentTexts& texts) {
    ColumnReply reply;
    reply.records = static_cast<std::size_t>(reader.takeUpTo(static_cast<std::uint64_t>(count)));
    reply.error = reader.takeText();
    // A block that makes no progress would be asked for again and again. What ends an evaluation
    // leaves a record that was not evaluated.
    if (reply.records == (reply.error.empty() ? 0 : count)) reader.refuse();
    reply.reason =
        static_cast<EndReason>(reader.takeUpTo(static_cast<std::uint8_t>(EndReason::terminated)));
    auto const failures = reader.takeUpTo(static_cast<std::uint64_t>(count));
    for (std::uint64_t i = 0; i < failures; ++i) {
        KxJsColumns::Failure failure = takeFailure(reader, texts);
        bool const isNext = reply.failures.empty() || failure.record > reply.failures.back().record;
        if (failure.record >= reply.records || !isNext) {
            reader.refuse();
            break;
        }
        reply.failures.push_back(std::move(failure));
    }
    return reply;
}

}  // namespace kx
