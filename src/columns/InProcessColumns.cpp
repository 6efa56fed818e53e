#include "columns/InProcessColumns.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "columns/ColumnEvaluation.h"
#include "columns/ColumnTexts.h"
#include "columns/FlagScope.h"
#include "host/KxJsParser.h"

namespace kx {

namespace {

/// Resources that ColumnFormula::release() can fill without allocating.
std::list<HostResources> emptyResources() {
    std::list<HostResources> resources(1);
    resources.front().scripts.reserve(1);
    return resources;
}

}  // namespace

InProcessColumns::InProcessColumns(KxJsParser& parser)
    : parser_(parser),
      host_(inProcessHost(parser)),
      record_(host_.record()),
      lastResources_(emptyResources()) {}

InProcessColumns::~InProcessColumns() { release(std::move(lastResources_)); }

void InProcessColumns::release(std::list<HostResources> resources) noexcept {
    if (formula_ != nullptr) formula_->release(resources.front());
    formula_.reset();
    record_->release(std::move(resources));
}

void InProcessColumns::setProgress(KxJsColumns::Progress progress) {
    refuseWhileEvaluating();
    progress_ = std::move(progress);
}

void InProcessColumns::refuseWhileEvaluating() const {
    if (isEvaluating_) throw std::logic_error("the columns are being evaluated");
}

void InProcessColumns::bind(std::u16string const& name, Column::Values values) {
    refuseWhileEvaluating();
    auto const found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](Column const& column) { return column.name == name; });
    if (found != columns_.end()) {
        found->values = values;
        return;
    }
    release(emptyResources());
    columns_.push_back({name, values});
}

bool InProcessColumns::bindToHost(std::u16string& error) {
    for (Column const& column : columns_) {
        if (parser_.addSetVariable(column.blank())) continue;
        error = u"A column cannot have the name \"" + column.name + u"\"";
        return false;
    }
    return true;
}

bool InProcessColumns::compile(std::u16string const& source, std::u16string& error) {
    if (isEvaluating_ || !host_.isOnItsThread()) {
        error = isEvaluating_ ? kBusy : kWrongThread;
        return false;
    }
    release(emptyResources());
    if (!bindToHost(error) || !host_.isUsable()) return false;
    std::unique_ptr<CompiledScript> script = host_.compile(source, error);
    if (script == nullptr) return false;
    formula_ = std::make_unique<ColumnFormula>(host_, source, std::move(script));
    return true;
}

KxJsColumns::Outcome InProcessColumns::evaluate(std::size_t count, ColumnResults const& results) {
    KxJsColumns::Outcome outcome;
    if (!host_.isOnItsThread()) {
        outcome.error = kWrongThread;
    } else if (isEvaluating_) {
        outcome.error = kBusy;
    } else if (formula_ == nullptr || !formula_->isCurrent()) {
        outcome.error = kNotCompiled;
    } else if (host_.limits().isRefused()) {
        outcome.error = host_.limits().refusalText();
    }
    if (!outcome.error.empty() || !host_.makeContext(outcome.error)) return outcome;
    v8::HandleScope const handles(host_.isolate());
    v8::Context::Scope const entered(host_.context());
    LimitedRun const run(host_.limits());
    host_.countChange();  // for columns in whose progress function these are evaluated
    FlagScope const evaluating(isEvaluating_);
    ColumnEvaluation(parser_, host_, *formula_, columns_, count, results, outcome).run(progress_);
    return outcome;
}

}  // namespace kx
