#pragma once

#include <cstddef>
#include <vector>

#include "process/ChannelMemory.h"

namespace kx {

/// Where the numbers and truth values of a block of records lie that are copied, in the area of a
/// channel: column by column, then the results. Both sides work it out from the same sizes.
class ColumnArea {
  public:
    /// `records` are those of the block.
    explicit ColumnArea(std::size_t records) : records_(records) {}

    /// Takes the place for values of `size` bytes each. Returns where it begins.
    std::size_t take(std::size_t size) {
        std::size_t const offset = used_;
        constexpr std::size_t kLine = 64;
        used_ += (records_ * size + kLine - 1) / kLine * kLine;
        return offset;
    }

    /// The most records for which there is room, with values of `sizes` bytes altogether in
    /// `columns` places.
    static std::size_t mostRecords(std::size_t columns, std::size_t sizes) {
        constexpr std::size_t kLine = 64;
        std::size_t const lost = columns * kLine;
        if (lost >= kChannelArea) return 0;
        return sizes == 0 ? kChannelArea : (kChannelArea - lost) / sizes;
    }

  private:
    std::size_t const records_;
    std::size_t used_ = 0;
};

}  // namespace kx
