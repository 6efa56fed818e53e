#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace kx {

/// Memory for the texts of one evaluation, and a count of the work that they are. Evaluations that
/// need more than the limit are left to V8, which a time limit can end.
class TextArena {
  public:
    /// Units of texts made and searched in one evaluation.
    static constexpr std::size_t kMostWork = std::size_t{1} << 18;

    /// Memory for `size` units, or null where there is too much work. Valid until clear().
    char16_t* allocate(std::size_t size) {
        if (!countWork(size)) return nullptr;
        if (size <= first_.size() - used_) {
            char16_t* const units = first_.data() + used_;
            used_ += size;
            return units;
        }
        return more_.emplace_back(size).data();
    }

    /// The same behind the end of `text`, or null where that is not where the arena is free.
    char16_t* allocateBehind(std::u16string_view text, std::size_t size) {
        char16_t* const units = first_.data() + used_;
        if (text.data() + text.size() != units || size > first_.size() - used_) return nullptr;
        if (!countWork(size)) return nullptr;
        used_ += size;
        return units;
    }

    /// A copy of `text`, of char16_t or ASCII; empty where there is too much work.
    template <class Unit>
    std::optional<std::u16string_view> copy(std::basic_string_view<Unit> text) {
        char16_t* const units = allocate(text.size());
        if (units == nullptr) return std::nullopt;
        std::copy(text.begin(), text.end(), units);
        return std::u16string_view(units, text.size());
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
