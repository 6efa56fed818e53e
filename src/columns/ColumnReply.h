#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "columns/KxJsColumns.h"
#include "columns/RecentTexts.h"
#include "engine/EndReason.h"
#include "isolated/Message.h"

namespace kx {

/// What a worker says of a block of records, up to the results.
struct ColumnReply {
    std::size_t records = 0;  ///< that were evaluated
    std::u16string error;
    EndReason reason = EndReason::none;
    std::vector<KxJsColumns::Failure> failures;  ///< with records from 0 on
};

/// For the worker.
void putColumnReply(MessageWriter& writer, KxJsColumns::Outcome const& outcome, EndReason reason);

/// Takes the reply about a block of `count` records. Checks everything that has a range, and that
/// failures come in the order of their records. See MessageReader::isRight(). `texts` shares
/// equal texts.
ColumnReply takeColumnReply(MessageReader& reader, std::size_t count, RecentTexts& texts);

}  // namespace kx
