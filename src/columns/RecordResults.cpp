#include "columns/RecordResults.h"

#include <limits>
#include <string_view>
#include <utility>
#include <variant>

#include "engine/Text.h"
#include "native/Conversions.h"
#include "text/Contains.h"

namespace kx {

namespace {

constexpr std::u16string_view kNaN = u"NaN";

}  // namespace

void RecordResults::convert(v8::Isolate* isolate, v8::Local<v8::Context> context,
                            v8::Local<v8::Value> completion) {
    std::size_t const record = next();
    if (auto const* texts = std::get_if<TextResults>(&results_)) {
        std::u16string const text = textOfValue(isolate, context, completion);
        texts->put(record, text);
        if (text.find(kNaN) != std::u16string::npos) noteNotANumber();
    } else if (auto* const* numbers = std::get_if<double*>(&results_)) {
        (*numbers)[record] =
            completion->NumberValue(context).FromMaybe(std::numeric_limits<double>::quiet_NaN());
    } else {
        std::get<bool*>(results_)[record] = completion->BooleanValue(isolate);
    }
}

bool RecordResults::convert(Evaluator& evaluator, Value const& value) {
    std::size_t const record = next();
    if (auto const* texts = std::get_if<TextResults>(&results_)) {
        auto const text = evaluator.textOf(value);
        if (!text) return false;
        texts->put(record, *text);
        if (contains(*text, u'N') && text->find(kNaN) != std::u16string::npos) noteNotANumber();
    } else if (auto* const* numbers = std::get_if<double*>(&results_)) {
        if (value.isNumber()) {
            (*numbers)[record] = value.number;
            return true;
        }
        auto const number = toNumber(value);
        if (!number) return false;
        (*numbers)[record] = *number;
    } else {
        std::get<bool*>(results_)[record] = isTrue(value);
    }
    return true;
}

void RecordResults::fail(std::u16string error, KxJsFailure const& failure) {
    if (auto const* texts = std::get_if<TextResults>(&results_)) {
        texts->put(next(), {});
    } else if (auto* const* numbers = std::get_if<double*>(&results_)) {
        (*numbers)[next()] = std::numeric_limits<double>::quiet_NaN();
    } else {
        std::get<bool*>(results_)[next()] = false;
    }
    outcome_.failures.push_back({next(), texts_.shared(std::move(error)),
                                 texts_.shared(failure.message), failure.line, failure.column,
                                 failure.endColumn});
}

void RecordResults::endBlock(ColumnRun& run, std::size_t last) {
    auto const* const texts = std::get_if<TextResults>(&results_);
    if (texts == nullptr) {
        outcome_.records = last;
        return;
    }
    run.forEachText(last - next(), [&](std::u16string_view text) {
        texts->put(next(), text);
        if (text.find(kNaN) != std::u16string_view::npos) noteNotANumber();
        endRecord();
    });
}

void RecordResults::noteNotANumber() {
    if (notANumber_.empty()) notANumber_ = KxJsColumns::SharedText(u"Not A Number");
    outcome_.failures.push_back({next(), notANumber_, notANumber_});
}

}  // namespace kx
