// A worker with invalid replies: the application takes any bytes as the result of a command or
// of a block of columns. What it calls right has to be what a worker could have written.
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "columns/ColumnReply.h"
#include "isolated/Message.h"
#include "isolated/Protocol.h"
#include "support/Check.h"

namespace {

using Bytes = std::vector<std::byte>;

void takeResult(Bytes const& message) {
    kx::MessageReader reader(message);
    kx::CommandResult const result = kx::takeResult(reader);
    if (!reader.isRight()) return;
    kx::MessageWriter writer;
    putResult(writer, result);
    kx::fuzz::check(writer.bytes() == message, "a result is another one when it is written");
}

void takeColumns(Bytes const& message, std::size_t count) {
    kx::MessageReader reader(message);
    kx::RecentTexts texts;
    kx::ColumnReply reply = takeColumnReply(reader, count, texts);
    kx::fuzz::check(reply.records <= count, "more records than asked for");
    kx::fuzz::check(reply.failures.size() <= count, "more failures than records");
    std::size_t next = 0;
    for (KxJsColumns::Failure const& failure : reply.failures) {
        kx::fuzz::check(failure.record >= next && failure.record < count, "a wrong record fails");
        kx::fuzz::check(failure.line >= 0 && failure.column >= 0 && failure.endColumn >= 0,
                        "a place below 0");
        next = failure.record + 1;
    }
    if (!reader.isRight()) return;
    kx::fuzz::check(reply.records > 0 || !reply.error.empty(), "no progress, and no reason");
    kx::MessageWriter writer;
    putColumnReply(writer, {reply.records, std::move(reply.failures), reply.error}, reply.reason);
    kx::fuzz::check(writer.bytes() == message, "a reply is another one when it is written");
}

}  // namespace

/// The first byte is the number of records of a block; 0 is the result of a command.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) return 0;
    auto const input = std::as_bytes(std::span(data, size)).subspan(1);
    Bytes const message(input.begin(), input.end());
    if (data[0] == 0) {
        takeResult(message);
    } else {
        takeColumns(message, data[0]);
    }
    return 0;
}
