#include "columns/ColumnEvaluation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

#include "columns/ColumnGlobals.h"
#include "columns/ColumnKeys.h"
#include "columns/ColumnNames.h"
#include "engine/Text.h"
#include "host/BoundVariable.h"
#include "host/KxJsParser.h"

namespace kx {

namespace {

using Clock = std::chrono::steady_clock;

/// Between two looks at the clock and two calls of whoever watches.
constexpr std::chrono::milliseconds kBlockTime{10};
constexpr std::size_t kFirstBlock = 64;
/// A block of the kernel cannot be looked into, and its records may become more expensive.
constexpr std::size_t kLargestBlock = std::size_t{1} << 14;
/// Choosing a road takes as long as so many records one by one.
constexpr std::size_t kChoice = 64;
constexpr std::size_t kLongestPause = kChoice << 6;

constexpr std::u16string_view kNotCompiled =
    u"No formula is compiled for these columns, or the script host was reset since";
constexpr std::u16string_view kStopped = u"The evaluation was stopped";
constexpr std::u16string_view kBusy = u"These columns are being evaluated";

/// Sets a flag for the life of the object.
class Raised {
  public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(Raised const&) = delete;
    Raised& operator=(Raised const&) = delete;

  private:
    bool& flag_;
};

/// Failures' texts: an evaluation's records fail for few reasons, mostly.
class RecentTexts {
  public:
    KxJsColumns::SharedText shared(std::u16string text) {
        auto const known = std::find(texts_.begin(), texts_.end(), std::u16string_view(text));
        if (known != texts_.end()) return *known;
        next_ = (next_ + 1) % texts_.size();
        return texts_[next_] = KxJsColumns::SharedText(std::move(text));
    }

  private:
    std::array<KxJsColumns::SharedText, 16> texts_;
    std::size_t next_ = 0;
};

/// For one script and a kernel.
std::list<HostResources> roomForResources() {
    std::list<HostResources> resources(1);
    resources.front().scripts.reserve(1);
    return resources;
}

}  // namespace

struct ColumnEvaluation::Evaluation {
    std::size_t count;
    ColumnResults const& results;
    v8::Isolate* isolate;
    v8::Local<v8::Context> context;
    KxJsColumns::Outcome& outcome;
    Road road = Road::untried;
    bool hasSucceeded = false;  // a record since the road was left
    std::size_t fastFrom = 0;   // the record with which the fast road was taken
    std::size_t pause = 0;      // how many records the road is not chosen for
    std::size_t slowUntil = 0;
    RecentTexts texts = {};
    KxJsColumns::SharedText notANumber = {};
    std::optional<v8::HandleScope> runHandles;
    std::optional<ColumnRun> run;

    std::size_t& next() const { return outcome.records; }
    void failAsNotANumber() {
        if (notANumber.empty()) notANumber = KxJsColumns::SharedText(u"Not A Number");
        outcome.failures.push_back({outcome.records, notANumber, notANumber});
    }
    void fail(std::u16string error, KxJsFailure const& failure) {
        outcome.failures.push_back({outcome.records, texts.shared(std::move(error)),
                                    texts.shared(failure.message), failure.line, failure.column,
                                    failure.endColumn});
    }

    /// Where the meaning of a name may have changed.
    void leaveRoad() {
        road = Road::untried;
        hasSucceeded = false;
    }

    /// Where values may have changed, too.
    void dropRun() {
        leaveRoad();
        run.reset();
        runHandles.reset();
    }

    /// The same where that may happen often. Stretches too short to pay for a choice make the next
    /// one wait, each time longer.
    void leaveRoadForAWhile() {
        leaveRoad();
        bool const wasWorthIt = next() - fastFrom >= kChoice;
        pause = wasWorthIt ? 0 : std::clamp(pause * 2, kChoice, kLongestPause);
        slowUntil = next() + pause;
    }
};

ColumnEvaluation::ColumnEvaluation(KxJsParser& parser)
    : parser_(parser),
      host_(inProcessHost(parser)),
      record_(host_.record()),
      lastResources_(roomForResources()) {}

ColumnEvaluation::~ColumnEvaluation() { give(std::move(lastResources_)); }

void ColumnEvaluation::forget() {
    give(roomForResources());
    expression_.reset();
}

void ColumnEvaluation::give(std::list<HostResources> resources) noexcept {
    if (script_ != nullptr) resources.front().scripts.push_back(std::move(script_));
    if (kernel_ != nullptr) kernel_->release(resources.front());
    kernel_.reset();
    record_->release(std::move(resources));
}

void ColumnEvaluation::setProgress(KxJsColumns::Progress progress) {
    refuseWhileEvaluating();
    progress_ = std::move(progress);
}

void ColumnEvaluation::refuseWhileEvaluating() const {
    if (isEvaluating_) throw std::logic_error("the columns are being evaluated");
}

void ColumnEvaluation::bind(std::u16string const& name, Column::Values values) {
    refuseWhileEvaluating();
    auto const found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](Column const& column) { return column.name == name; });
    if (found != columns_.end()) {
        found->values = values;
        return;
    }
    forget();
    columns_.push_back({name, values});
}

bool ColumnEvaluation::bindToHost(std::u16string& error) {
    for (Column const& column : columns_) {
        if (parser_.addSetVariable(column.blank())) continue;
        error = u"A column cannot have the name \"" + column.name + u"\"";
        return false;
    }
    return true;
}

bool ColumnEvaluation::compile(std::u16string const& source, std::u16string& error) {
    if (isEvaluating_ || !host_.isOnItsThread()) {
        error = isEvaluating_ ? kBusy : kWrongThread;
        return false;
    }
    forget();
    if (!bindToHost(error)) return false;
    if (!host_.isUsable()) return false;
    std::unique_ptr<CompiledScript> script = host_.compile(source, error);
    if (script == nullptr) return false;
    source_ = source;
    keys_.clear();
    for (auto const& [key, variable] : host_.variables()) {
        if (source_.find(key) != std::u16string::npos) keys_.push_back(key);
    }
    inFrontAt_.reset();
    expression_ = pureExpression(source_);
    mayHaveEffects_ =
        !expression_ || std::any_of(expression_->names.begin(), expression_->names.end(),
                                    [](auto const& name) { return evaluatesTexts(name.text); });
    generation_ = host_.generation();
    script_ = std::move(script);  // from here on there is a formula: nothing fails any more
    return true;
}

std::optional<ColumnBindings> ColumnEvaluation::bindings(v8::Local<v8::Context> context) const {
    v8::HandleScope const handles(context->GetIsolate());
    if (!areKeysAsBound(context)) return std::nullopt;
    bool callsBuiltIns = false;
    auto const& library = record_->libraryScript();
    int const libraryId = library == nullptr ? -1 : library->get(context->GetIsolate())->GetId();
    ColumnBindings bindings;
    for (auto const& [text, isCalled] : expression_->names) {
        std::u16string const name(text);
        auto const column =
            std::find_if(columns_.begin(), columns_.end(),
                         [&](Column const& candidate) { return candidate.name == name; });
        if (column != columns_.end()) {
            bindings.columns.push_back(&*column);
        } else if (std::find(keys_.begin(), keys_.end(), name) != keys_.end()) {
            bindings.constants.push_back(name);
        } else {
            auto const meaning = meaningOf(context, name, libraryId);
            if (meaning == NameMeaning::unknown) return std::nullopt;
            callsBuiltIns = callsBuiltIns || meaning != NameMeaning::constant;
            if (meaning != NameMeaning::evaluating) continue;
            // As a value it would show that something else stands for it.
            if (!isCalled) return std::nullopt;
            bindings.evaluating.push_back(name);
        }
    }
    if (callsBuiltIns && !mayCallBuiltIns(context, libraryId)) return std::nullopt;
    return bindings;
}

bool ColumnEvaluation::areKeysAsBound(v8::Local<v8::Context> context) const {
    if (areCarriersKeys(keys_)) return false;
    for (std::u16string const& key : keys_) {
        BoundVariable const& bound = host_.bound(host_.variables().at(key));
        if (!isBoundAsMade(context, key, bound, host_.accessorName())) return false;
    }
    std::uint64_t const now = host_.scriptsRun();
    if (inFrontAt_ == now) return true;
    if (!areCarriersInFront(context, keys_)) return false;
    inFrontAt_ = now;
    return true;
}

bool ColumnEvaluation::mayCallBuiltIns(v8::Local<v8::Context> context, int libraryId) const {
    std::uint64_t const now = host_.scriptsRun();
    if (untouchedAt_ == now) return true;
    if (!areBuiltInsUntouched(context, libraryId)) return false;
    untouchedAt_ = now;
    return true;
}

void ColumnEvaluation::chooseRoad(Evaluation& evaluation) {
    evaluation.road = Road::slow;
    // With the one record that has been run there must be some that are not the last.
    if (!expression_ || evaluation.count - evaluation.next() < 2) return;
    if (evaluation.count > v8compat::kMostArrayElements) return;
    auto const names = bindings(evaluation.context);
    if (!names) return;
    evaluation.fastFrom = evaluation.next();
    bool const fits = kernel_ != nullptr && kernel_->fits(*names, evaluation.results);
    if (fits && evaluation.run) {
        evaluation.road = Road::fast;
        return;
    }
    evaluation.dropRun();
    evaluation.road = Road::slow;
    evaluation.runHandles.emplace(evaluation.isolate);
    if (!fits) {
        std::list<HostResources> resources(1);
        if (kernel_ != nullptr) kernel_->release(resources.front());
        kernel_.reset();
        record_->release(std::move(resources));
        kernel_ = ColumnKernel::make(record_->handles(), evaluation.context, expression_->text,
                                     *names, evaluation.results);
        if (kernel_ == nullptr) return;
    }
    std::vector<v8::Local<v8::Value>> constants;
    for (std::u16string const& name : names->constants) {
        constants.push_back(host_.bound(host_.variables().at(name)).value(evaluation.isolate));
    }
    evaluation.run.emplace(*kernel_, evaluation.isolate, evaluation.context, *names, constants,
                           evaluation.results, evaluation.count);
    evaluation.road = Road::fast;
}

KxJsColumns::Outcome ColumnEvaluation::evaluate(std::size_t count, ColumnResults const& results) {
    KxJsColumns::Outcome outcome;
    if (!host_.isOnItsThread()) {
        outcome.error = kWrongThread;
        return outcome;
    }
    if (isEvaluating_) {
        outcome.error = kBusy;
        return outcome;
    }
    if (script_ == nullptr || generation_ != host_.generation()) {
        outcome.error = kNotCompiled;
        return outcome;
    }
    if (host_.limits().isRefused()) {
        outcome.error = host_.limits().refusalText();
        return outcome;
    }
    v8::Isolate* const isolate = host_.isolate();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::Context> const context = host_.context();
    v8::Context::Scope const entered(context);
    LimitedRun const run(host_.limits());
    host_.countChange();  // for columns in whose progress these are evaluated
    Raised const evaluating(isEvaluating_);
    Evaluation evaluation{.count = count,
                          .results = results,
                          .isolate = isolate,
                          .context = context,
                          .outcome = outcome,
                          .runHandles = std::nullopt,
                          .run = std::nullopt};
    std::size_t size = kFirstBlock;
    while (outcome.records < count) {
        Clock::time_point const start = Clock::now();
        if (!runBlock(evaluation, std::min(count, outcome.records + size))) break;
        if (Clock::now() - start < kBlockTime)
            size = std::min(size * 2, kLargestBlock);
        else
            size = std::max<std::size_t>(size / 2, 1);
        if (!progress_) continue;
        std::uint64_t const before = host_.changes();
        bool const goesOn = progress_(outcome.records);
        if (outcome.records == count) break;
        if (!goesOn) {
            outcome.error = kStopped;
        } else if (generation_ != host_.generation()) {
            outcome.error = kNotCompiled;
        } else if (host_.endReason() != EndReason::none) {
            // Asked for during the callback, where a script that it ran has met the request.
            outcome.error = host_.limits().endText();
        }
        if (!outcome.error.empty()) break;
        if (host_.changes() != before) evaluation.dropRun();
    }
    return outcome;
}

bool ColumnEvaluation::runBlock(Evaluation& evaluation, std::size_t last) {
    std::size_t& next = evaluation.next();
    Clock::time_point const deadline = Clock::now() + kBlockTime;
    while (next < last) {
        if (evaluation.road != Road::fast || next + 1 == evaluation.count) {
            if (!runOneByOne(evaluation)) return false;
            if (evaluation.road == Road::untried && evaluation.hasSucceeded &&
                next >= evaluation.slowUntil) {
                chooseRoad(evaluation);
            }
            if (Clock::now() >= deadline) return true;
            continue;
        }
        std::size_t const first = next;
        std::size_t stop = first;
        auto const how = evaluation.run->block(stop, std::min(last, evaluation.count - 1));
        if (how == ColumnRun::Stop::ended) {
            evaluation.outcome.error = host_.limits().endText();
            return false;
        }
        takeBlock(evaluation, first, stop);
        if (how != ColumnRun::Stop::failed) continue;
        if (!runOneByOne(evaluation)) return false;
        // A text that it has evaluated may have done anything.
        if (mayHaveEffects_) evaluation.leaveRoadForAWhile();
    }
    return true;
}

void ColumnEvaluation::takeBlock(Evaluation& evaluation, std::size_t first, std::size_t last) {
    auto* const* const texts = std::get_if<std::u16string*>(&evaluation.results);
    if (texts != nullptr) evaluation.run->takeTexts(first, last, *texts);
    for (; evaluation.next() < last; ++evaluation.next()) {
        if (texts == nullptr) continue;
        if ((*texts)[evaluation.next()].find(u"NaN") == std::u16string::npos) continue;
        evaluation.failAsNotANumber();
    }
}

bool ColumnEvaluation::runOneByOne(Evaluation& evaluation) {
    if (mayHaveEffects_) host_.countScript();
    v8::Isolate* const isolate = evaluation.isolate;
    v8::HandleScope const handles(isolate);
    v8::TryCatch capture(isolate);
    std::size_t const record = evaluation.next();
    for (Column const& column : columns_) parser_.addSetVariable(column.at(record));
    host_.runOnce(*script_, evaluation.context, capture,
                  [&](v8::Local<v8::Value> completion) { take(evaluation, completion); });
    if (capture.HasTerminated()) {
        evaluation.outcome.error = host_.limits().endText();
        return false;
    }
    if (capture.HasCaught()) {
        std::visit([&](auto* results) { results[record] = {}; }, evaluation.results);
        if (auto* const* numbers = std::get_if<double*>(&evaluation.results)) {
            (*numbers)[record] = std::numeric_limits<double>::quiet_NaN();
        }
        std::u16string error = host_.reportFailure(capture, *script_);
        evaluation.fail(std::move(error), *host_.lastFailure());
    } else {
        evaluation.hasSucceeded = true;
    }
    ++evaluation.next();
    return true;
}

void ColumnEvaluation::take(Evaluation& evaluation, v8::Local<v8::Value> completion) {
    std::size_t const record = evaluation.next();
    if (auto* const* texts = std::get_if<std::u16string*>(&evaluation.results)) {
        std::u16string& text = (*texts)[record];
        text = textOfValue(evaluation.isolate, evaluation.context, completion);
        // Where the conversion has thrown, the failure is the record's.
        if (text.find(u"NaN") != std::u16string::npos) evaluation.failAsNotANumber();
    } else if (auto* const* numbers = std::get_if<double*>(&evaluation.results)) {
        (*numbers)[record] = completion->NumberValue(evaluation.context)
                                 .FromMaybe(std::numeric_limits<double>::quiet_NaN());
    } else {
        std::get<bool*>(evaluation.results)[record] = completion->BooleanValue(evaluation.isolate);
    }
}

}  // namespace kx
