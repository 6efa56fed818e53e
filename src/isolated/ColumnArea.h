#pragma once

#include <cstddef>
#include <vector>

#include "process/ChannelMemory.h"

namespace kx {

/// The places of copied numbers and truth values of a block of records, in the area of a channel:
/// column by column, then the results. Both sides compute them from the same sizes.
class ColumnArea {
  public:
    /// `records` are those of the block.
    explicit ColumnArea(std::size_t records) : records_(records) {}

    /// Takes the place for values of `size` bytes each. Returns where it begins.
    std::size_t take(std::size_t size) {
        std::size_t const offset = used_;
        used_ += (records_ * size + kLine - 1) / kLine * kLine;
        return offset;
    }

    /// The most records that fit, with values of `sizes` bytes altogether in `columns` places.
    static std::size_t mostRecords(std::size_t columns, std::size_t sizes) {
        std::size_t const lost = columns * kLine;
        if (lost >= kChannelArea) return 0;
        return sizes == 0 ? kChannelArea : (kChannelArea - lost) / sizes;
    }

  private:
    /// Places begin at lines of the processor's cache.
    static constexpr std::size_t kLine = 64;

    std::size_t const records_;
    std::size_t used_ = 0;
};

}  // namespace kx
