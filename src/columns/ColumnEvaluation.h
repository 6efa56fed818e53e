#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <v8.h>

#include "columns/Column.h"
#include "columns/ColumnFormula.h"
#include "columns/ColumnRun.h"
#include "columns/KxJsColumns.h"
#include "columns/NativeRun.h"
#include "columns/RecordResults.h"
#include "host/InProcessHost.h"

namespace kx {

/// One evaluation of a formula over records. Lives inside a LimitedRun and a handle scope, with the
/// context entered.
///
/// There are three paths. On the slow one the script runs record by record, as
/// KxJsParser::execute() would. On the fast one a kernel of V8's runs many records at a time, and
/// on the native one records are evaluated without V8. The first record always takes the
/// slow path, so that names which scripts have made unusable show, and the last too, so that it
/// leaves behind what execute() leaves. A record that fails on another path is run again on the
/// slow path, which gives its result and its error text.
class ColumnEvaluation {
  public:
    ColumnEvaluation(KxJsParser& parser, InProcessHost& host, ColumnFormula& formula,
                     std::vector<Column> const& columns, std::size_t count,
                     ColumnResults const& results, KxJsColumns::Outcome& outcome);

    /// Evaluates all records, or fewer and says why in the outcome.
    void run(KxJsColumns::Progress const& progress);

  private:
    enum class Path : std::uint8_t { unchosen, native, fast, slow };

    /// Both return false where the evaluation was ended.
    bool runBlock(std::size_t last);
    bool runNatively(std::size_t last);
    bool runOneByOne();
    bool runInV8();
    bool isNativePathBest() const;
    bool goesOnAfter(KxJsColumns::Progress const& progress);

    void choosePath();
    /// To be called where the meaning of a name may have changed.
    void leavePath();
    /// To be called where values may have changed too.
    void dropRun();
    /// As leavePath(), where that may happen often. The next choice waits, longer each time that
    /// the fast path was too short to pay for it.
    void leavePathForAWhile();

    KxJsParser& parser_;
    InProcessHost& host_;
    ColumnFormula& formula_;
    std::vector<Column> const& columns_;
    std::size_t const count_;
    v8::Local<v8::Context> const context_;
    KxJsColumns::Outcome& outcome_;
    RecordResults results_;

    Path path_ = Path::unchosen;
    bool hasSucceeded_ = false;        // whether a record has since the path was left
    std::optional<NativeRun> native_;  // where the formula has a program
    std::size_t nativeFailures_ = 0;
    std::size_t fastFrom_ = 0;  // the record at which the fast path was taken
    std::size_t pause_ = 0;     // how many records the next choice waits for
    std::size_t slowUntil_ = 0;
    std::optional<v8::HandleScope> runHandles_;
    std::optional<ColumnRun> run_;
};

}  // namespace kx
