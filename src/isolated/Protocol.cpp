#include "isolated/Protocol.h"

#include <limits>
#include <utility>

namespace kx {

namespace {

/// A failure has no more, as KxJsFailure says.
constexpr std::uint32_t kMostFrames = 32;
constexpr auto kLargestPlace = std::numeric_limits<std::int32_t>::max();

void putFailure(MessageWriter& writer, KxJsFailure const& failure) {
    writer.put(failure.kind);
    writer.putText(failure.message);
    writer.put(failure.line);
    writer.put(failure.column);
    writer.put(failure.endColumn);
    writer.put(failure.isInCall);
    writer.putText(failure.sourceLine);
    writer.put(static_cast<std::uint32_t>(failure.frames.size()));
    for (KxJsFailure::Frame const& frame : failure.frames) {
        writer.putText(frame.function);
        writer.put(frame.line);
        writer.put(frame.column);
        writer.put(frame.isInSource);
    }
}

std::int32_t takePlace(MessageReader& reader) { return reader.takeUpTo(kLargestPlace); }

KxJsFailure takeFailure(MessageReader& reader) {
    KxJsFailure failure;
    // A worker cannot tell of its own end.
    failure.kind = static_cast<KxJsFailure::Kind>(
        reader.takeUpTo(static_cast<std::int32_t>(KxJsFailure::Kind::LIMIT)));
    failure.message = reader.takeText();
    failure.line = takePlace(reader);
    failure.column = takePlace(reader);
    failure.endColumn = takePlace(reader);
    failure.isInCall = reader.takeBool();
    failure.sourceLine = reader.takeText();
    failure.frames.resize(reader.takeUpTo(kMostFrames));
    for (KxJsFailure::Frame& frame : failure.frames) {
        frame.function = reader.takeText();
        frame.line = takePlace(reader);
        frame.column = takePlace(reader);
        frame.isInSource = reader.takeBool();
    }
    return failure;
}

}  // namespace

char const* protocolVersion() { return KXJS_VERSION ", protocol 3"; }

void putVariable(MessageWriter& writer, KxJsVariable const& variable) {
    writer.putText(variable.getKey());
    writer.put(static_cast<std::uint8_t>(variable.getType()));
    switch (variable.getType()) {
        case KxJsVariable::TYPE_OF_VAR_LONG:
            return writer.put(variable.getLongValue());
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            return writer.put(variable.getDoubleValue());
        case KxJsVariable::TYPE_OF_VAR_STRING:
            return writer.putText(std::u16string_view(variable.getStrValue())
                                      .substr(0, KxJsVariable::kMaxTextLength));
        case KxJsVariable::TYPE_OF_VAR_BOOLEAN:
            return writer.put(variable.getBooleanValue());
        case KxJsVariable::TYPE_OF_VAR_UNDEFINED:
            return;
    }
}

KxJsVariable takeVariable(MessageReader& reader) {
    std::u16string key = reader.takeText();
    switch (reader.take<std::uint8_t>()) {
        case KxJsVariable::TYPE_OF_VAR_LONG:
            return {std::move(key), reader.take<std::int32_t>()};
        case KxJsVariable::TYPE_OF_VAR_DOUBLE:
            return {std::move(key), reader.take<double>()};
        case KxJsVariable::TYPE_OF_VAR_STRING:
            return {std::move(key), reader.takeText()};
        case KxJsVariable::TYPE_OF_VAR_BOOLEAN:
            return {std::move(key), reader.takeBool()};
        default:
            // One without a type reads as true.
            return {std::move(key), true};
    }
}

void putResult(MessageWriter& writer, CommandResult const& result) {
    writer.put(result.isDone);
    writer.putText(result.text);
    writer.put(result.error.has_value());
    if (result.error) writer.putText(*result.error);
    writer.put(result.endReason);
    writer.put(result.failure.has_value());
    if (result.failure) putFailure(writer, *result.failure);
}

CommandResult takeResult(MessageReader& reader) {
    CommandResult result;
    result.isDone = reader.takeBool();
    result.text = reader.takeText();
    if (reader.takeBool()) result.error = reader.takeText();
    result.endReason =
        static_cast<EndReason>(reader.takeUpTo(static_cast<std::uint8_t>(EndReason::terminated)));
    if (reader.takeBool()) result.failure = takeFailure(reader);
    return result;
}

}  // namespace kx
