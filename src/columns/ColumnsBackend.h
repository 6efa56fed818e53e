#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "columns/Column.h"
#include "columns/FlagScope.h"
#include "columns/KxJsColumns.h"

namespace kx {

/// What a KxJsColumns does over one kind of host, and the columns that are bound. Members mean what
/// KxJsColumns says.
class ColumnsBackend {
  public:
    explicit ColumnsBackend(KxJsParser& parser) : parser_(parser) {}
    virtual ~ColumnsBackend() = default;
    ColumnsBackend(ColumnsBackend const&) = delete;
    ColumnsBackend& operator=(ColumnsBackend const&) = delete;

    void bind(std::u16string const& name, Column::Values values);
    virtual bool compile(std::u16string const& source, std::u16string& error) = 0;
    virtual KxJsColumns::Outcome evaluate(std::size_t count, ColumnResults const& results) = 0;
    void setProgress(KxJsColumns::Progress progress);

  protected:
    KxJsParser& parser() const { return parser_; }
    std::vector<Column> const& columns() const { return columns_; }
    KxJsColumns::Progress const& progress() const { return progress_; }
    bool isEvaluating() const { return isEvaluating_; }
    FlagScope beginEvaluation() { return FlagScope(isEvaluating_); }

    /// Makes a variable of the host for each column, so that a formula can be compiled.
    bool bindToHost(std::u16string& error);

  private:
    /// A formula that was compiled does not know the next column.
    virtual void forgetFormula() = 0;
    /// The values of a column are of another type than when the formula was compiled.
    virtual void typeWasChanged() {}

    void refuseWhileEvaluating() const;

    KxJsParser& parser_;
    std::vector<Column> columns_;
    KxJsColumns::Progress progress_;
    bool isEvaluating_ = false;
};

}  // namespace kx
