#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <v8.h>

#include "columns/Column.h"
#include "columns/ColumnKernel.h"
#include "columns/PureExpression.h"
#include "host/InProcessHost.h"

namespace kx {

/// A formula compiled for columns: the script that runs one record, and the kernel that runs many,
/// for formulas that are pure expressions.
class ColumnFormula {
  public:
    /// `script` is what the host has compiled `source` to.
    ColumnFormula(InProcessHost& host, std::u16string source,
                  std::unique_ptr<CompiledScript> script);

    HostScript const& script() const { return static_cast<HostScript const&>(*script_); }

    /// Whether the script still has its variables: the host was not reset since.
    bool isCurrent() const { return generation_ == host_.generation(); }

    /// Whether running the script for one record may change what names mean.
    bool mayHaveEffects() const { return mayHaveEffects_; }

    /// What the formula's names stand for at this moment. Nothing where the formula is no pure
    /// expression, or where a kernel might give other results than the script.
    std::optional<ColumnBindings> bindings(v8::Local<v8::Context> context,
                                           std::vector<Column> const& columns) const;

    /// The kernel that was made last, where it is for names and types like these; else null.
    ColumnKernel const* kernelFor(ColumnBindings const& bindings,
                                  ColumnResults const& results) const;

    /// Makes a kernel in place of an earlier one. Null where V8 refuses.
    ColumnKernel const* makeKernel(v8::Local<v8::Context> context, ColumnBindings const& bindings,
                                   ColumnResults const& results);

    /// Moves the handles to `resources`, whose `scripts` has capacity for one.
    void release(HostResources& resources) noexcept;

  private:
    bool areKeysAsBound(v8::Local<v8::Context> context) const;
    bool areBuiltInsAsMade(v8::Local<v8::Context> context, int libraryId) const;

    InProcessHost& host_;
    std::u16string const source_;
    std::unique_ptr<CompiledScript> script_;
    std::uint64_t const generation_;
    std::vector<std::u16string> keys_;                // the variables that the script reads
    std::optional<PureExpression> const expression_;  // of source_
    bool const mayHaveEffects_;
    std::unique_ptr<ColumnKernel> kernel_;
    /// The number of scripts run when these checks succeeded: they hold until the next script.
    /// @{
    mutable std::optional<std::uint64_t> keysCheckedAt_;
    mutable std::optional<std::uint64_t> builtInsCheckedAt_;
    /// @}
};

}  // namespace kx
