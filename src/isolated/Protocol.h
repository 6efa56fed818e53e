#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "engine/EndReason.h"
#include "host/KxJsFailure.h"
#include "host/KxJsVariable.h"
#include "isolated/Message.h"

namespace kx {

/// What library and worker call themselves. A change of Command, or of what a command holds, needs
/// a new number.
char const* protocolVersion();

/// A request is a sequence of commands. Those from `install` on are answered, in their order.
enum class Command : std::uint8_t {
    setVariable,     ///< key, type, value
    release,         ///< id of a script or of columns
    noLibrary,       ///< nothing; before all others: a new worker has the built-in functions
    timeLimit,       ///< milliseconds, 64 bits
    memoryLimit,     ///< bytes, 64 bits
    native,          ///< 0 or 1: whether formulas may be evaluated without V8
    install,         ///< nothing
    reset,           ///< nothing
    compile,         ///< id, source
    run,             ///< id
    compileColumns,  ///< id, number of columns, name and type of each, source
    runColumns       ///< id, type of results, number of records, values of text columns or place of
                     ///< others, place of results, milliseconds as those of timeLimit
};

/// Marks the place of values as an offset in the area of the channel. Other places are offsets in
/// the memory that the application shares.
inline constexpr std::uint64_t kInArea = std::uint64_t{1} << 63;

/// The answer to one of those, except `runColumns`.
struct CommandResult {
    bool isDone = false;  ///< `compile`: whether there is a script now
    std::u16string text;  ///< `run`: the text of the completion value
    std::optional<std::u16string> error;
    EndReason endReason = EndReason::none;
    std::optional<KxJsFailure> failure;
};

/// A variable as scripts see it: of a text no more than that.
void putVariable(MessageWriter& writer, KxJsVariable const& variable);
KxJsVariable takeVariable(MessageReader& reader);

void putResult(MessageWriter& writer, CommandResult const& result);
/// Checks everything that has a range. See MessageReader::isRight().
CommandResult takeResult(MessageReader& reader);

}  // namespace kx
