#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <v8.h>

#include "columns/ColumnKernel.h"
#include "columns/ExternalArrays.h"

namespace kx {

/// One evaluation by a kernel. Lives inside the evaluation's handle scope, with the context
/// entered.
class ColumnRun {
  public:
    /// `constants` are the values of the host's variables that the bindings name.
    ColumnRun(ColumnKernel const& kernel, v8::Isolate* isolate, v8::Local<v8::Context> context,
              ColumnBindings const& bindings, std::vector<v8::Local<v8::Value>> const& constants,
              ColumnResults const& results, std::size_t count);

    enum class Stop : std::uint8_t { done, failed, ended };

    /// Evaluates records from `first`, at most up to `last`, and sets `first` to where it stopped:
    /// at a record that has to be run one by one (failed), or at `last` or before (done). Where
    /// the script was ended, `first` is left alone.
    Stop block(std::size_t& first, std::size_t last);

    /// Gives the texts of the first `count` records of the last block to `take`.
    void forEachText(std::size_t count, std::function<void(std::u16string_view)> const& take) const;

  private:
    static constexpr std::size_t kStaged = 1024;
    static constexpr std::size_t kLargest = std::size_t{1} << 16;

    std::size_t largestBlock() const { return isStaged_ ? kStaged : kLargest; }

    v8::Local<v8::Value> textArray(Column const& column, std::size_t first, std::size_t last);

    v8::Isolate* isolate_;
    v8::Local<v8::Context> context_;
    v8::Local<v8::Function> loop_;
    std::vector<v8::Local<v8::Value>> arguments_;
    std::vector<std::pair<std::size_t, Column const*>> texts_;  // argument positions and columns
    bool isStaged_;
    std::array<double, 2> state_{};
    std::vector<double> numbers_;
    std::vector<std::uint32_t> lengths_;
    std::vector<std::uint8_t> kinds_;
    std::u16string text_;
    std::vector<v8::Local<v8::Value>> elements_;
    ExternalArrays arrays_;  // last: over the others' memory
};

}  // namespace kx
