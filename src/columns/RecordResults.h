#pragma once

#include <cstddef>
#include <string>

#include <v8.h>

#include "columns/Column.h"
#include "columns/ColumnRun.h"
#include "columns/KxJsColumns.h"
#include "columns/RecentTexts.h"
#include "host/KxJsFailure.h"
#include "native/Program.h"

namespace kx {

/// Where an evaluation puts what became of its records: results in the application's memory,
/// failures in the outcome, whose number of records says which one is next.
class RecordResults {
  public:
    RecordResults(ColumnResults const& results, KxJsColumns::Outcome& outcome)
        : results_(results), outcome_(outcome) {}

    ColumnResults const& target() const { return results_; }
    std::size_t next() const { return outcome_.records; }
    void endRecord() { ++outcome_.records; }

    /// Converts `completion`, the value of the next record. What that throws is in the caller's
    /// v8::TryCatch.
    void convert(v8::Isolate* isolate, v8::Local<v8::Context> context,
                 v8::Local<v8::Value> completion);

    /// Converts `value`, that of the next record. False where that needs V8.
    bool convert(Evaluator& evaluator, Value const& value);

    /// The next record has failed.
    void fail(std::u16string error, KxJsFailure const& failure);

    /// The records up to `last` were evaluated by the last block of `run`.
    void endBlock(ColumnRun& run, std::size_t last);

  private:
    void noteNotANumber();

    ColumnResults const& results_;
    KxJsColumns::Outcome& outcome_;
    RecentTexts texts_;
    KxJsColumns::SharedText notANumber_;
};

}  // namespace kx
