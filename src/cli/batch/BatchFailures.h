#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cli/batch/BatchColumns.h"
#include "cli/batch/CsvReader.h"
#include "cli/formula/FailureReport.h"
#include "columns/KxJsColumns.h"

namespace kx {

/// Where the record begins, for messages: "line 5".
std::string placeOf(CsvBlock const& block, std::size_t record);

/// Reports what fails in a batch. All records have one formula; its line and the marks under it are
/// shown only where they differ from those that were shown last.
class BatchFailures {
  public:
    /// `javaScript` is the formula after conversion.
    BatchFailures(std::u16string formula, std::u16string javaScript);

    /// Reports that the formula does not compile.
    void reportFormula(std::u16string const& error, KxJsFailure const* failure);

    /// Reports the records that the formula failed for, and those that `columns` has refused, in
    /// the order of their lines.
    void reportRecords(CsvBlock const& block, BatchColumns const& columns,
                       std::vector<KxJsColumns::Failure> const& failures);

  private:
    void report(std::string const& place, KxJsColumns::Failure const& failure);

    std::u16string formula_;
    FormulaRun run_;
    FailedLine shown_;
};

}  // namespace kx
