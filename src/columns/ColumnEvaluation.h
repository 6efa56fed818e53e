#pragma once

#include <chrono>
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "columns/Column.h"
#include "columns/ColumnKernel.h"
#include "columns/ColumnRun.h"
#include "columns/KxJsColumns.h"
#include "columns/PureExpression.h"
#include "host/InProcessHost.h"

namespace kx {

/// What a KxJsColumns does: holds the columns and the compiled formula, and drives evaluations.
///
/// A formula that is a pure expression is run by a kernel, many records at a time. The first record
/// is always run as the host would run it, so that names which scripts have made unusable show,
/// and the last too, so that it leaves behind what the host's run leaves. A record that fails in
/// the kernel is run again in the same way, which gives the result and the error text that it has.
class ColumnEvaluation {
  public:
    explicit ColumnEvaluation(KxJsParser& parser);
    ~ColumnEvaluation();
    ColumnEvaluation(ColumnEvaluation const&) = delete;
    ColumnEvaluation& operator=(ColumnEvaluation const&) = delete;

    void bind(std::u16string const& name, Column::Values values);
    bool compile(std::u16string const& source, std::u16string& error);
    KxJsColumns::Outcome evaluate(std::size_t count, ColumnResults const& results);
    void setProgress(KxJsColumns::Progress progress);

  private:
    enum class Road : std::uint8_t { untried, fast, slow };

    struct Evaluation;

    void refuseWhileEvaluating() const;
    void forget();
    void give(std::list<HostResources> resources) noexcept;
    bool bindToHost(std::u16string& error);
    /// The bindings of the formula's names at this moment; nothing where one is not harmless.
    std::optional<ColumnBindings> bindings(v8::Local<v8::Context> context) const;
    bool areKeysAsBound(v8::Local<v8::Context> context) const;
    void chooseRoad(Evaluation& evaluation);
    bool mayCallBuiltIns(v8::Local<v8::Context> context, int libraryId) const;
    bool runBlock(Evaluation& evaluation, std::size_t last);
    bool runOneByOne(Evaluation& evaluation);
    void take(Evaluation& evaluation, v8::Local<v8::Value> completion);
    void takeBlock(Evaluation& evaluation, std::size_t first, std::size_t last);

    KxJsParser& parser_;
    InProcessHost& host_;
    std::shared_ptr<IsolateRecord> record_;
    std::vector<Column> columns_;
    KxJsColumns::Progress progress_;
    std::u16string source_;
    std::unique_ptr<CompiledScript> script_;
    std::uint64_t generation_ = 0;
    std::vector<std::u16string> keys_;          // that the script assigns
    std::optional<PureExpression> expression_;  // of source_
    bool mayHaveEffects_ = false;
    std::unique_ptr<ColumnKernel> kernel_;
    bool isEvaluating_ = false;
    /// When scripts had run as often, nothing stood in front of the carriers of keys_, and the
    /// built-in functions were found untouched.
    /// @{
    mutable std::optional<std::uint64_t> inFrontAt_;
    mutable std::optional<std::uint64_t> untouchedAt_;
    /// @}
    std::list<HostResources> lastResources_;  // the destructor's: has room already
};

}  // namespace kx
