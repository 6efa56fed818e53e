#include "columns/ColumnEvaluation.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "columns/ColumnTexts.h"
#include "engine/V8Compat.h"
#include "host/KxJsParser.h"

namespace kx {

namespace {

using Clock = std::chrono::steady_clock;

/// Between two looks at the clock, and two calls of the progress function.
constexpr std::chrono::milliseconds kBlockTime{10};
constexpr std::size_t kFirstBlock = 64;
/// A block of the kernel cannot be interrupted, and its records may become more expensive.
constexpr std::size_t kLargestBlock = std::size_t{1} << 14;
/// Choosing a path takes as long as this many records one by one.
constexpr std::size_t kChoice = 64;
constexpr std::size_t kLongestPause = kChoice << 6;
/// Evaluated without V8 between two looks at whether the evaluation is to end.
constexpr std::size_t kNativeBlock = 64;
/// So many records with numbers alone are worth a kernel, whose loop is faster once it runs.
constexpr std::size_t kWorthKernel = 256;

}  // namespace

ColumnEvaluation::ColumnEvaluation(KxJsParser& parser, InProcessHost& host, ColumnFormula& formula,
                                   std::vector<Column> const& columns, std::size_t count,
                                   ColumnResults const& results, KxJsColumns::Outcome& outcome)
    : parser_(parser),
      host_(host),
      formula_(formula),
      columns_(columns),
      count_(count),
      context_(host.context()),
      outcome_(outcome),
      results_(results, outcome) {
    if (formula.script().program() != nullptr) native_.emplace(host, formula.script(), columns);
}

void ColumnEvaluation::run(KxJsColumns::Progress const& progress) {
    std::size_t size = kFirstBlock;
    while (results_.next() < count_) {
        Clock::time_point const start = Clock::now();
        if (!runBlock(std::min(count_, results_.next() + size))) return;
        if (Clock::now() - start < kBlockTime) {
            size = std::min(size * 2, kLargestBlock);
        } else {
            size = std::max<std::size_t>(size / 2, 1);
        }
        if (progress && !goesOnAfter(progress)) return;
    }
}

bool ColumnEvaluation::goesOnAfter(KxJsColumns::Progress const& progress) {
    std::uint64_t const before = host_.changes();
    bool const isWanted = progress(results_.next());
    if (results_.next() == count_) return false;
    if (!isWanted) {
        outcome_.error = kStopped;
    } else if (!formula_.isCurrent()) {
        outcome_.error = kNotCompiled;
    } else if (host_.endReason() != EndReason::none) {
        // Requested during the call. A script that ran in it has met the request.
        outcome_.error = host_.limits().endText();
    }
    if (!outcome_.error.empty()) return false;
    if (host_.changes() != before) dropRun();
    return true;
}

bool ColumnEvaluation::runBlock(std::size_t last) {
    Clock::time_point const deadline = Clock::now() + kBlockTime;
    while (results_.next() < last) {
        if (path_ == Path::native && results_.next() + 1 < count_) {
            if (!runNatively(std::min(last, count_ - 1))) return false;
            if (Clock::now() >= deadline) return true;
            continue;
        }
        if (path_ != Path::fast || results_.next() + 1 == count_) {
            if (!runOneByOne()) return false;
            if (path_ == Path::unchosen && hasSucceeded_ && results_.next() >= slowUntil_) {
                choosePath();
            }
            if (Clock::now() >= deadline) return true;
            continue;
        }
        std::size_t stop = results_.next();
        auto const how = run_->block(stop, std::min(last, count_ - 1));
        if (how == ColumnRun::Stop::ended) {
            outcome_.error = host_.limits().endText();
            return false;
        }
        results_.endBlock(*run_, stop);
        if (how != ColumnRun::Stop::failed) continue;
        if (!runOneByOne()) return false;
        // The record may have evaluated a text, which can do anything.
        if (formula_.mayHaveEffects()) leavePathForAWhile();
    }
    return true;
}

bool ColumnEvaluation::runNatively(std::size_t last) {
    if (host_.endReason() != EndReason::none) {
        outcome_.error = host_.limits().endText();
        return false;
    }
    if (host_.isNativeAllowed() &&
        native_->block(results_, std::min(last, results_.next() + kNativeBlock))) {
        return true;
    }
    ++nativeFailures_;
    leavePath();
    return true;
}

bool ColumnEvaluation::isNativePathBest() const {
    if (!native_ || !host_.isNativeAllowed()) return false;
    // A record that fails costs as much as many that do not.
    if (nativeFailures_ > 1 + results_.next() / kNativeBlock) return false;
    return native_->readsTexts() || count_ - results_.next() < kWorthKernel;
}

bool ColumnEvaluation::runOneByOne() {
    for (Column const& column : columns_) parser_.addSetVariable(column.at(results_.next()));
    bool const isDone =
        host_.runNatively(formula_.script(), [this](Evaluator& evaluator, Value const& value) {
            return results_.convert(evaluator, value);
        });
    if (!isDone) return runInV8();
    hasSucceeded_ = true;
    results_.endRecord();
    return true;
}

bool ColumnEvaluation::runInV8() {
    if (formula_.mayHaveEffects()) host_.countScript();
    v8::Isolate* const isolate = host_.isolate();
    v8::HandleScope const handles(isolate);
    v8::TryCatch const capture(isolate);
    v8::Local<v8::Value> const completion = host_.runOnce(formula_.script(), context_, capture);
    if (!completion.IsEmpty()) {
        results_.convert(isolate, context_, completion);
        host_.endConversion(completion);
    }
    if (capture.HasTerminated()) {
        outcome_.error = host_.limits().endText();
        return false;
    }
    if (capture.HasCaught()) {
        std::u16string error = host_.reportFailure(capture, formula_.script());
        results_.fail(std::move(error), *host_.lastFailure());
    } else {
        hasSucceeded_ = true;
    }
    results_.endRecord();
    return true;
}

void ColumnEvaluation::choosePath() {
    path_ = isNativePathBest() ? Path::native : Path::slow;
    if (path_ == Path::native) return;
    // The last record takes the slow path anyway.
    if (count_ - results_.next() < 2 || count_ > v8compat::kMostArrayElements) return;
    auto const names = formula_.bindings(context_, columns_);
    if (!names) return;
    fastFrom_ = results_.next();
    ColumnKernel const* kernel = formula_.kernelFor(*names, results_.target());
    if (kernel != nullptr && run_) {
        path_ = Path::fast;
        return;
    }
    dropRun();
    path_ = Path::slow;
    runHandles_.emplace(host_.isolate());
    if (kernel == nullptr) kernel = formula_.makeKernel(context_, *names, results_.target());
    if (kernel == nullptr) return;
    std::vector<v8::Local<v8::Value>> constants;
    for (std::u16string const& name : names->constants) {
        constants.push_back(host_.bound(host_.variables().at(name)).value(host_.isolate()));
    }
    run_.emplace(*kernel, host_.isolate(), context_, *names, constants, results_.target(), count_);
    path_ = Path::fast;
}

void ColumnEvaluation::leavePath() {
    path_ = Path::unchosen;
    hasSucceeded_ = false;
}

void ColumnEvaluation::dropRun() {
    leavePath();
    run_.reset();
    runHandles_.reset();
}

void ColumnEvaluation::leavePathForAWhile() {
    leavePath();
    bool const wasWorthIt = results_.next() - fastFrom_ >= kChoice;
    pause_ = wasWorthIt ? 0 : std::clamp(pause_ * 2, kChoice, kLongestPause);
    slowUntil_ = results_.next() + pause_;
}

}  // namespace kx
