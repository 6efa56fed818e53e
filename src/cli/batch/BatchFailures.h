#pragma once

#include <string>

#include "cli/formula/FailureReport.h"
#include "columns/KxJsColumns.h"

namespace kx {

/// Reports the records that a formula fails for, one line each. All of them have one formula, so
/// the place in it is shown where it is another than last time.
class BatchFailures {
  public:
    /// `javaScript` is what the formula became.
    BatchFailures(std::u16string formula, std::u16string javaScript);

    /// `place` says where the record stands.
    void report(std::string const& place, KxJsColumns::Failure const& failure);

  private:
    std::u16string formula_;
    FormulaRun run_;
    FailedLine shown_;
};

}  // namespace kx
