#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>

#include "process/ChannelMemory.h"

namespace kx {

/// The places of copied numbers and truth values of a block of records, in the area of a channel:
/// column by column, then the results. The area has two halves: while the worker evaluates the
/// block in one, the application fills the other.
class ColumnArea {
  public:
    /// `records` are those of the block, `half` is 0 or 1.
    ColumnArea(std::size_t records, std::size_t half) : records_(records), used_(half * kHalf) {}

    /// Takes the place for values of `size` bytes each. Returns where it begins.
    std::size_t take(std::size_t size) {
        std::size_t const offset = used_;
        used_ += (records_ * size + kLine - 1) / kLine * kLine;
        return offset;
    }

    /// The most records of a block whose values have `sizes` bytes together, in `columns` places:
    /// as many as the processor's cache holds, at least one. 0 where a half of the area cannot hold
    /// one.
    static std::size_t mostRecords(std::size_t columns, std::size_t sizes) {
        std::size_t const lost = columns * kLine;
        if (lost >= kHalf) return 0;
        if (sizes == 0) return std::numeric_limits<std::size_t>::max();
        return std::min((kHalf - lost) / sizes, std::max<std::size_t>(kCached / sizes, 1));
    }

  private:
    /// Places begin at lines of the processor's cache.
    static constexpr std::size_t kLine = 64;
    static constexpr std::size_t kHalf = kChannelArea / 2;
    /// What a processor's own cache holds beside other things.
    static constexpr std::size_t kCached = std::size_t{768} * 1024;

    std::size_t const records_;
    std::size_t used_;
};

}  // namespace kx
