#include "columns/ColumnRun.h"

#include <algorithm>

#include "engine/Text.h"
#include "engine/V8Compat.h"
#include "host/SeenText.h"
#include "text/NumberText.h"

namespace kx {

namespace {

/// Positions among the loop's arguments.
enum : std::size_t { kFormula, kFirst, kLast, kBase, kState, kNumbers, kLengths, kKinds };

std::uint8_t const* bytesOf(bool const* values) {
    static_assert(sizeof(bool) == 1);
    return reinterpret_cast<std::uint8_t const*>(values);
}

v8::Local<v8::Value> arrayOver(ExternalArrays& arrays, Column const& column, std::size_t count) {
    if (auto const* const* values = std::get_if<double const*>(&column.values)) {
        return arrays.over(*values, count);
    }
    if (auto const* const* values = std::get_if<std::int32_t const*>(&column.values)) {
        return arrays.over(*values, count);
    }
    return arrays.over(bytesOf(std::get<bool const*>(column.values)), count);
}

v8::Local<v8::Value> v8Number(v8::Isolate* isolate, std::size_t number) {
    return v8::Number::New(isolate, static_cast<double>(number));
}

std::u16string_view textOfKind(ResultKind kind) {
    switch (kind) {
        case ResultKind::isFalse:
            return u"false";
        case ResultKind::isTrue:
            return u"true";
        case ResultKind::null:
            return u"null";
        default:
            return u"undefined";
    }
}

}  // namespace

ColumnRun::ColumnRun(ColumnKernel const& kernel, v8::Isolate* isolate,
                     v8::Local<v8::Context> context, ColumnBindings const& bindings,
                     std::vector<v8::Local<v8::Value>> const& constants,
                     ColumnResults const& results, std::size_t count)
    : isolate_(isolate),
      context_(context),
      loop_(kernel.loop(isolate)),
      isStaged_(std::holds_alternative<TextResults>(results)),
      arrays_(isolate) {
    v8::Local<v8::Value> const none = v8::Undefined(isolate);
    arguments_ = {kernel.formula(isolate),
                  none,
                  none,
                  none,
                  arrays_.over(state_.data(), state_.size()),
                  none,
                  none,
                  none};
    if (isStaged_) {
        numbers_.resize(kStaged);
        lengths_.resize(kStaged);
        kinds_.resize(kStaged);
        arguments_[kNumbers] = arrays_.over(numbers_.data(), kStaged);
        arguments_[kLengths] = arrays_.over(lengths_.data(), kStaged);
        arguments_[kKinds] = arrays_.over(kinds_.data(), kStaged);
    } else if (auto* const* numbers = std::get_if<double*>(&results)) {
        arguments_[kNumbers] = arrays_.over(*numbers, count);
    } else {
        arguments_[kNumbers] = arrays_.over(bytesOf(std::get<bool*>(results)), count);
    }
    for (std::u16string const& name : bindings.evaluating) {
        arguments_.emplace_back(kernel.evaluating(isolate, name));
    }
    arguments_.insert(arguments_.end(), constants.begin(), constants.end());
    for (Column const* column : bindings.columns) {
        if (column->isText()) {
            isStaged_ = true;
            texts_.emplace_back(arguments_.size(), column);
            arguments_.push_back(none);
        } else {
            arguments_.push_back(arrayOver(arrays_, *column, count));
        }
    }
}

ColumnRun::Stop ColumnRun::block(std::size_t& first, std::size_t last) {
    v8::HandleScope const handles(isolate_);
    v8::TryCatch const capture(isolate_);
    last = std::min(last, first + largestBlock());
    arguments_[kFirst] = arguments_[kBase] = v8Number(isolate_, first);
    arguments_[kLast] = v8Number(isolate_, last);
    for (auto const& [position, column] : texts_) {
        arguments_[position] = textArray(*column, first, last);
    }
    v8::Local<v8::Value> text;
    if (!loop_
             ->Call(context_, v8::Undefined(isolate_), static_cast<int>(arguments_.size()),
                    arguments_.data())
             .ToLocal(&text)) {
        // Where the stack is nearly used up, even the loop's own call fails.
        return capture.HasTerminated() ? Stop::ended : Stop::failed;
    }
    if (!kinds_.empty()) {
        auto const joined = text.As<v8::String>();
        text_.resize(static_cast<std::size_t>(joined->Length()));
        v8compat::writeCodeUnits(isolate_, joined, text_.data());
    }
    first = static_cast<std::size_t>(state_[0]);
    return state_[1] == 0 ? Stop::done : Stop::failed;
}

void ColumnRun::forEachText(std::size_t count,
                            std::function<void(std::u16string_view)> const& take) const {
    std::u16string_view rest = text_;
    for (std::size_t i = 0; i < count; ++i) {
        switch (auto const kind = static_cast<ResultKind>(kinds_[i])) {
            case ResultKind::number:
                take(numberToText(numbers_[i]));
                break;
            case ResultKind::text: {
                std::u16string_view const text = rest.substr(0, lengths_[i]);
                rest.remove_prefix(lengths_[i]);
                take(text.substr(0, text.find(u'\0')));
                break;
            }
            default:
                take(textOfKind(kind));
        }
    }
}

v8::Local<v8::Value> ColumnRun::textArray(Column const& column, std::size_t first,
                                          std::size_t last) {
    v8::EscapableHandleScope handles(isolate_);
    elements_.clear();
    for (std::size_t record = first; record < last; ++record) {
        elements_.emplace_back(toV8String(isolate_, seenText(column.text(record))));
    }
    return handles.Escape(v8::Array::New(isolate_, elements_.data(), elements_.size()));
}

}  // namespace kx
