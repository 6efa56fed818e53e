#include <algorithm>
#include <limits>
#include <string_view>

#include "c/HostOfCall.h"
#include "c/kxjs_columns.h"

namespace kx::c {

Columns::~Columns() {
    if (!host->parser._backend().isOnItsThread()) host->leave(owned);
}

namespace {

/// Columns on the thread of their host, outside of an evaluation.
std::shared_ptr<Columns> columnsOf(kxjs_columns* handle) {
    auto columns = shared<Columns>(handle);
    require(columns->host->parser._backend().isUsable(), KXJS_WRONG_THREAD);
    require(!columns->isEvaluating, KXJS_BUSY);
    return columns;
}

/// Binds a column, and notes it, so that an evaluation knows its length. `place` is where the
/// library finds the values; null where an evaluation says so.
template <class Unit, class Place>
kxjs_status bindColumn(Columns& columns, Unit const* name, std::size_t length, Place const* place,
                       Columns::Bound::Values values, std::size_t count) {
    Columns::Bound bound{textOf(name, length), std::move(values), count};
    columns.bound.reserve(columns.bound.size() + 1);
    columns.columns.bind(bound.name, place);
    // Nothing fails from here on.
    auto const found =
        std::find_if(columns.bound.begin(), columns.bound.end(),
                     [&](Columns::Bound const& other) { return other.name == bound.name; });
    if (found != columns.bound.end()) {
        *found = std::move(bound);
    } else {
        columns.bound.push_back(std::move(bound));
        columns.isCompiled = false;
    }
    return KXJS_OK;
}

template <class Value>
void checkArray(Value const* values, std::size_t count) {
    require(count <= std::numeric_limits<std::ptrdiff_t>::max() / sizeof *values, KXJS_TOO_LONG);
    require(values != nullptr || count == 0, KXJS_NULL_ARGUMENT);
}

template <class Unit, class Value>
kxjs_status bindNumbers(kxjs_columns* handle, Unit const* name, std::size_t length,
                        Value const* values, std::size_t count) {
    return guarded([&] {
        auto const columns = columnsOf(handle);
        checkArray(values, count);
        return bindColumn(*columns, name, length, values, Columns::Numbers{}, count);
    });
}

template <class Unit>
kxjs_status bindBools(kxjs_columns* handle, Unit const* name, std::size_t length,
                      std::uint8_t const* values, std::size_t count) {
    return guarded([&] {
        auto const columns = columnsOf(handle);
        checkArray(values, count);
        // An evaluation makes sure first that each byte is a bool.
        return bindColumn(*columns, name, length, reinterpret_cast<bool const*>(values),
                          Columns::Bools{values}, count);
    });
}

template <class Unit>
kxjs_status bindSpans(kxjs_columns* handle, Unit const* name, std::size_t length,
                      kxjs_span_utf16 const* values, std::size_t count) {
    return guarded([&] {
        auto const columns = columnsOf(handle);
        checkArray(values, count);
        return bindColumn(*columns, name, length, static_cast<std::u16string_view const*>(nullptr),
                          Columns::Spans{values}, count);
    });
}

template <class Unit>
kxjs_status bindTexts(kxjs_columns* handle, Unit const* name, std::size_t length,
                      kxjs_texts* values) {
    return guarded([&] {
        auto const columns = columnsOf(handle);
        return bindColumn(*columns, name, length, static_cast<std::u16string_view const*>(nullptr),
                          shared<Texts>(values), 0);
    });
}

template <class Unit>
kxjs_status compile(kxjs_columns* handle, Unit const* source, std::size_t length,
                    kxjs_text* error) {
    return guarded([&] {
        auto const columns = columnsOf(handle);
        Text* const errorText = optional<Text>(error);
        std::u16string const text = textOf(source, length);
        std::u16string reason;
        columns->isCompiled = false;
        columns->isCompiled = columns->columns.compile(text, reason);
        columns->resets = columns->host->resets;
        setText(errorText, std::move(reason));
        return columns->isCompiled ? KXJS_OK : KXJS_FORMULA_FAILED;
    });
}

/// An evaluation of columns: what it holds on to, and gives back at its end.
class Evaluation {
  public:
    Evaluation(Columns& columns, std::size_t count) : columns_(columns) {
        for (Columns::Bound& bound : columns_.bound) prepare(bound, count);
        columns_.failures.clear();
        columns_.isEvaluating = true;
    }
    ~Evaluation() { columns_.isEvaluating = false; }
    Evaluation(Evaluation const&) = delete;
    Evaluation& operator=(Evaluation const&) = delete;

    template <class Evaluate>
    KxJsColumns::Outcome run(Evaluate evaluate) {
        bool const hasFormula = columns_.isCompiled && columns_.resets == columns_.host->resets;
        KxJsColumns::Outcome outcome = evaluate();
        columns_.failures = std::move(outcome.failures);
        status_ = outcome.error.empty() ? KXJS_OK : hasFormula ? KXJS_ENDED : KXJS_NOT_COMPILED;
        return outcome;
    }
    kxjs_status status() const { return status_; }

  private:
    /// Checks a column, and tells the library where its texts are by now.
    void prepare(Columns::Bound& bound, std::size_t count) {
        if (auto const* const list = std::get_if<std::shared_ptr<Texts>>(&bound.values)) {
            uses_.push_back(std::make_unique<Texts::Reading>(*list));
            Texts::Joined const& items = (*list)->items();
            bound.count = items.size();
            std::size_t const first = std::min(count, bound.count);
            bindTexts(bound.name, first, [&](std::size_t i) { return items[i]; });
        }
        require(count <= bound.count, KXJS_BAD_ARGUMENT);
        if (auto const* const bools = std::get_if<Columns::Bools>(&bound.values)) {
            auto const isBool = [](std::uint8_t value) { return value <= 1; };
            require(std::all_of(bools->values, bools->values + count, isBool), KXJS_BAD_ARGUMENT);
        } else if (auto const* const spans = std::get_if<Columns::Spans>(&bound.values)) {
            bindTexts(bound.name, count, [&](std::size_t i) {
                kxjs_span_utf16 const& span = spans->values[i];
                checkText(span.data, span.length);
                return std::u16string_view(reinterpret_cast<char16_t const*>(span.data),
                                           span.length);
            });
        }
    }

    /// Binds the texts that `textOf` gives for each record.
    template <class TextOf>
    void bindTexts(std::u16string const& name, std::size_t count, TextOf textOf) {
        auto& views = views_.emplace_back();
        views.reserve(count);
        for (std::size_t i = 0; i < count; ++i) views.push_back(textOf(i));
        columns_.columns.bind(name, views.data());
    }

    Columns& columns_;
    kxjs_status status_ = KXJS_OK;
    std::vector<std::unique_ptr<Texts::Reading>> uses_;
    std::vector<std::vector<std::u16string_view>> views_;
};

/// What `results` becomes is `Result`, of the same size.
template <class Result, class Value>
kxjs_status evaluate(kxjs_columns* handle, Value* results, std::size_t count, std::size_t* records,
                     kxjs_text* error) {
    return guarded([&] {
        auto const columns = columnsOf(handle);
        auto const errorText = error == nullptr ? nullptr : shared<Text>(error);
        checkArray(results, count);
        Evaluation evaluation(*columns, count);
        auto* const goal = reinterpret_cast<Result*>(results);
        KxJsColumns::Outcome outcome =
            evaluation.run([&] { return columns->columns.evaluate(count, goal); });
        if (records != nullptr) *records = outcome.records;
        setText(errorText.get(), std::move(outcome.error));
        return evaluation.status();
    });
}

kxjs_status evaluateTexts(kxjs_columns* handle, kxjs_texts* results, std::size_t count,
                          std::size_t* records, kxjs_text* error) {
    return guarded([&] {
        auto const columns = columnsOf(handle);
        auto const errorText = error == nullptr ? nullptr : shared<Text>(error);
        Texts::Writing const list(shared<Texts>(results));
        Evaluation evaluation(*columns, count);
        KxJsColumns::JoinedTexts texts;
        KxJsColumns::Outcome outcome =
            evaluation.run([&] { return columns->columns.evaluate(count, texts); });
        list.replace(std::move(texts));
        if (records != nullptr) *records = outcome.records;
        setText(errorText.get(), std::move(outcome.error));
        return evaluation.status();
    });
}

}  // namespace
}  // namespace kx::c

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_columns_create(kxjs_host* host, kxjs_columns** columns) {
    return guarded([&] {
        hostOf(host).freeLeftColumns();
        return create(&out(columns), std::make_shared<Columns>(shared<Host>(host)));
    });
}

kxjs_status kxjs_columns_free(kxjs_columns* columns) {
    return guarded([&] {
        if (columns != nullptr) require(!object<Columns>(columns).isEvaluating, KXJS_BUSY);
        return release<Columns>(columns);
    });
}

kxjs_status kxjs_columns_bind_double(kxjs_columns* columns, char const* name, size_t name_length,
                                     double const* values, size_t count) {
    return bindNumbers(columns, name, name_length, values, count);
}

kxjs_status kxjs_columns_bind_double_utf16(kxjs_columns* columns, uint16_t const* name,
                                           size_t name_length, double const* values, size_t count) {
    return bindNumbers(columns, name, name_length, values, count);
}

kxjs_status kxjs_columns_bind_int32(kxjs_columns* columns, char const* name, size_t name_length,
                                    int32_t const* values, size_t count) {
    return bindNumbers(columns, name, name_length, values, count);
}

kxjs_status kxjs_columns_bind_int32_utf16(kxjs_columns* columns, uint16_t const* name,
                                          size_t name_length, int32_t const* values, size_t count) {
    return bindNumbers(columns, name, name_length, values, count);
}

kxjs_status kxjs_columns_bind_bool(kxjs_columns* columns, char const* name, size_t name_length,
                                   uint8_t const* values, size_t count) {
    return bindBools(columns, name, name_length, values, count);
}

kxjs_status kxjs_columns_bind_bool_utf16(kxjs_columns* columns, uint16_t const* name,
                                         size_t name_length, uint8_t const* values, size_t count) {
    return bindBools(columns, name, name_length, values, count);
}

kxjs_status kxjs_columns_bind_spans(kxjs_columns* columns, char const* name, size_t name_length,
                                    kxjs_span_utf16 const* values, size_t count) {
    return bindSpans(columns, name, name_length, values, count);
}

kxjs_status kxjs_columns_bind_spans_utf16(kxjs_columns* columns, uint16_t const* name,
                                          size_t name_length, kxjs_span_utf16 const* values,
                                          size_t count) {
    return bindSpans(columns, name, name_length, values, count);
}

kxjs_status kxjs_columns_bind_texts(kxjs_columns* columns, char const* name, size_t name_length,
                                    kxjs_texts* values) {
    return bindTexts(columns, name, name_length, values);
}

kxjs_status kxjs_columns_bind_texts_utf16(kxjs_columns* columns, uint16_t const* name,
                                          size_t name_length, kxjs_texts* values) {
    return bindTexts(columns, name, name_length, values);
}

kxjs_status kxjs_columns_compile(kxjs_columns* columns, char const* source, size_t source_length,
                                 kxjs_text* error) {
    return compile(columns, source, source_length, error);
}

kxjs_status kxjs_columns_compile_utf16(kxjs_columns* columns, uint16_t const* source,
                                       size_t source_length, kxjs_text* error) {
    return compile(columns, source, source_length, error);
}

kxjs_status kxjs_columns_set_progress(kxjs_columns* columns, kxjs_progress progress,
                                      void* context) {
    return guarded([&] {
        KxJsColumns::Progress function;
        if (progress != nullptr) {
            function = [progress, context](size_t records) {
                return progress(context, records) != 0;
            };
        }
        columnsOf(columns)->columns.setProgress(std::move(function));
        return KXJS_OK;
    });
}

kxjs_status kxjs_columns_evaluate_double(kxjs_columns* columns, double* results, size_t count,
                                         size_t* records, kxjs_text* error) {
    return evaluate<double>(columns, results, count, records, error);
}

kxjs_status kxjs_columns_evaluate_bool(kxjs_columns* columns, uint8_t* results, size_t count,
                                       size_t* records, kxjs_text* error) {
    static_assert(sizeof(bool) == sizeof(uint8_t));
    return evaluate<bool>(columns, results, count, records, error);
}

kxjs_status kxjs_columns_evaluate_texts(kxjs_columns* columns, kxjs_texts* results, size_t count,
                                        size_t* records, kxjs_text* error) {
    return evaluateTexts(columns, results, count, records, error);
}

kxjs_status kxjs_columns_failure_count(kxjs_columns* columns, size_t* count) {
    return guarded([&] {
        out(count) = columnsOf(columns)->failures.size();
        return KXJS_OK;
    });
}

kxjs_status kxjs_columns_failure_records(kxjs_columns* columns, size_t* records, size_t count) {
    return guarded([&] {
        auto const& failures = columnsOf(columns)->failures;
        checkArray(records, count);
        require(count <= failures.size(), KXJS_BAD_ARGUMENT);
        for (size_t i = 0; i < count; ++i) records[i] = failures[i].record;
        return KXJS_OK;
    });
}

kxjs_status kxjs_columns_failure(kxjs_columns* columns, size_t index, kxjs_column_failure* failure,
                                 kxjs_text* error, kxjs_text* message) {
    return guarded([&] {
        auto const itsColumns = columnsOf(columns);
        size_t const size = sizeOfStruct(failure);
        Text* const errorText = optional<Text>(error);
        Text* const messageText = optional<Text>(message);
        require(index < itsColumns->failures.size(), KXJS_NOT_FOUND);
        KxJsColumns::Failure const& found = itsColumns->failures[index];
        kxjs_column_failure value{};
        value.record = found.record;
        value.line = found.line;
        value.column = found.column;
        value.end_column = found.endColumn;
        writeStruct(*failure, value, size);
        setText(errorText, found.error);
        setText(messageText, found.message);
        return KXJS_OK;
    });
}

}  // extern "C"
