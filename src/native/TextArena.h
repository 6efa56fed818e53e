#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace kx {

/// Memory for the texts of one evaluation, and a count of the work that they are. Evaluations that
/// need more than the limit are left to V8, which a time limit can end.
class TextArena {
  public:
    /// Units of texts made and searched in one evaluation.
    static constexpr std::size_t kMostWork = std::size_t{1} << 18;

    /// Room for `size` units, or null where there is too much work. Valid until clear().
    char16_t* allocate(std::size_t size) {
        if (!countWork(size)) return nullptr;
        if (size <= first_.size() - used_) {
            char16_t* const room = first_.data() + used_;
            used_ += size;
            return room;
        }
        return more_.emplace_back(size).data();
    }

    bool countWork(std::size_t units) {
        if (units > kMostWork - work_) return false;
        work_ += units;
        return true;
    }

    void clear() {
        used_ = 0;
        work_ = 0;
        more_.clear();
    }

  private:
    std::array<char16_t, 2048> first_;
    std::size_t used_ = 0;
    std::size_t work_ = 0;
    std::vector<std::vector<char16_t>> more_;
};

}  // namespace kx
