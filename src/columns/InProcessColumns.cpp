#include "columns/InProcessColumns.h"

#include <algorithm>
#include <utility>

#include "columns/ColumnEvaluation.h"
#include "columns/ColumnTexts.h"
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
    : ColumnsBackend(parser),
      host_(inProcessHost(parser)),
      record_(host_.record()),
      lastResources_(emptyResources()) {}

InProcessColumns::~InProcessColumns() { release(std::move(lastResources_)); }

void InProcessColumns::release(std::list<HostResources> resources) noexcept {
    if (formula_ != nullptr) formula_->release(resources.front());
    formula_.reset();
    record_->release(std::move(resources));
}

void InProcessColumns::forgetFormula() { release(emptyResources()); }

bool InProcessColumns::compile(std::u16string const& source, std::u16string& error) {
    if (isEvaluating() || !host_.isOnItsThread()) {
        error = isEvaluating() ? kBusy : kWrongThread;
        return false;
    }
    forgetFormula();
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
    } else if (isEvaluating()) {
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
    FlagScope const evaluating = beginEvaluation();
    ColumnEvaluation(parser(), host_, *formula_, columns(), count, results, outcome)
        .run(progress());
    return outcome;
}

}  // namespace kx
