#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "columns/Column.h"
#include "columns/RecordResults.h"
#include "host/InProcessHost.h"

namespace kx {

/// Evaluates a formula record by record, without V8 and without variables of the host. To be made
/// where the formula may be evaluated without V8, and dropped with the host's next reset().
class NativeRun {
  public:
    NativeRun(InProcessHost& host, HostScript const& script, std::vector<Column> const& columns);

    /// Evaluates the next records, to `last`. False where one of them needs V8: it is the next.
    bool block(RecordResults& results, std::size_t last);

    /// Whether the formula reads a column of texts.
    bool readsTexts() const;

  private:
    InProcessHost& host_;
    HostScript const& script_;
    std::vector<std::pair<std::size_t, Column const*>> columns_;  // by their place among variables
};

}  // namespace kx
