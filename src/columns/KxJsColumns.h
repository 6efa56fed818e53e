#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "library/Export.h"

class KxJsParser;

namespace kx {
class ColumnsBackend;
}  // namespace kx

/// One formula over all records of a table whose columns lie in the application's memory.
///
///     KxJsParser host;
///     host.initialize();
///     std::vector<double> prices = ..., totals(prices.size());
///     std::vector<std::int32_t> counts = ...;
///
///     KxJsColumns columns(host);
///     columns.bind(u"PRICE", prices.data());
///     columns.bind(u"COUNT", counts.data());
///     std::u16string error;
///     if (!columns.compile(Converter::_convert(u"IIF(COUNT>9,PRICE*0.9,PRICE)*COUNT"), error))
///         return show(error);
///     KxJsColumns::Outcome outcome = columns.evaluate(prices.size(), totals.data());
///     for (auto const& failure : outcome.failures) show(failure.record, failure.error);
///
/// Each record has the result and the error text that it has with KxJsParser::addSetVariable() for
/// each column and KxJsParser::execute(), variables of the host included. Expressions without
/// effects run for many records at once. docs/columns.md says when, and what is outside of this
/// promise.
///
/// State: records run in order. Afterwards the columns are variables of the host, with the values
/// of the last record. Nothing clears the globals that the formula has set.
///
/// Memory: values are read where they are and never written; no script can reach the memory. A
/// failure takes 56 to about 500 bytes, so evaluate long tables in blocks: bind() the next one.
///
/// Limits: the host's limits and KxJsParser::terminate() hold for each evaluate() as a whole.
///
/// Errors: std::bad_alloc, beside the error texts. Where compile() throws, the earlier formula may
/// be gone. Where evaluate() throws, results have no meaning; formula and columns stay.
///
/// Threads: as the host's. The host must outlive the columns.
class KXJS_API KxJsColumns {
  public:
    /// A text that does not change, of which copies share the memory. Equal texts of one evaluation
    /// mostly do too.
    class KXJS_API SharedText {
      public:
        SharedText() = default;
        /// Takes over `text`.
        explicit SharedText(std::u16string text);

        /// The text, for as long as this copy or another lives.
        /// @{
        std::u16string const& str() const;
        operator std::u16string const&() const { return str(); }
        /// @}
        /// Whether the text has no units.
        bool empty() const { return str().empty(); }
        friend bool operator==(SharedText const& one, std::u16string_view other) {
            return one.str() == other;
        }
        friend bool operator==(SharedText const& one, SharedText const& other) {
            return one.str() == other.str();
        }

      private:
        std::shared_ptr<std::u16string const> _mText;
    };

    /// A record that failed, or whose result as text contains "NaN" (the result stays then).
    struct Failure {
        std::size_t record;          ///< from 0
        SharedText error;            ///< the error text of execute()
        SharedText message = {};     ///< the exception's text
        std::int32_t line = 0;       ///< in the formula as compile() got it: see KxJsFailure
        std::int32_t column = 0;     ///< see KxJsFailure
        std::int32_t endColumn = 0;  ///< see KxJsFailure
    };

    /// Texts one after the other, which take less time than a string for each: text `i` begins at
    /// `data[offsets[i]]` and ends before `data[offsets[i + 1]]`.
    struct JoinedTexts {
        std::u16string data;                     ///< all texts, nothing between them
        std::vector<std::size_t> offsets = {0};  ///< one more than there are texts

        /// The number of texts.
        std::size_t size() const { return offsets.size() - 1; }
        /// Text `i`, which must exist. Valid until the texts change.
        std::u16string_view operator[](std::size_t i) const {
            return std::u16string_view(data).substr(offsets[i], offsets[i + 1] - offsets[i]);
        }
        /// Appends a copy of `text`.
        void add(std::u16string_view text) {
            data += text;
            offsets.push_back(data.size());
        }
        /// Leaves the first `count` texts; there are at least as many.
        void truncate(std::size_t count) {
            offsets.resize(count + 1);
            data.resize(offsets.back());
        }
    };

    /// The outcome of an evaluation.
    struct Outcome {
        std::size_t records = 0;        ///< evaluated: fewer than asked for where it was ended
        std::vector<Failure> failures;  ///< in the order of the records
        std::u16string error;           ///< why it was ended or not begun; else empty
    };

    /// Called during an evaluation, about every hundredth of a second, with the number of records
    /// that are done. Returning false ends the evaluation. The function may use the host: what it
    /// changes holds from the next record on, and KxJsParser::reset() ends the evaluation. It may
    /// not use these columns: bind() and setProgress() throw std::logic_error then, compile() and
    /// evaluate() give an error text. An exception passes to the caller of evaluate().
    using Progress = std::function<bool(std::size_t records)>;

    /// Columns over `host`, in whose context formulas run.
    explicit KxJsColumns(KxJsParser& host);
    ~KxJsColumns();
    KxJsColumns(KxJsColumns const&) = delete;
    KxJsColumns& operator=(KxJsColumns const&) = delete;

    /// Names a column and says where its values are, that of record 0 first. They must stay as they
    /// are during evaluate() only. Binding an existing column again, to the next block of a long
    /// table, needs no new compile(); a new column does. Texts are cut as KxJsVariable cuts them.
    /// @{
    void bind(std::u16string const& name, double const* values);
    void bind(std::u16string const& name, std::int32_t const* values);
    void bind(std::u16string const& name, bool const* values);
    void bind(std::u16string const& name, std::u16string const* values);
    void bind(std::u16string const& name, std::u16string_view const* values);
    /// @}

    /// Compiles `source`, JavaScript as KxJsParser::parse() takes it, in place of an earlier
    /// formula, and binds the columns to the host. Returns false and a text in `error` where that
    /// fails; the earlier formula is gone then, except during an evaluation and on a wrong thread.
    /// To be repeated after KxJsParser::reset().
    bool compile(std::u16string const& source, std::u16string& error);

    /// Evaluates the formula for the records 0 to `count`-1. `results` has space for as many, and
    /// its type says what values become: texts as execute() gives them, numbers as unary plus gives
    /// them, or truth values as a condition takes them. A failing record gets the empty text, NaN
    /// or false, and does not end the evaluation. Where that is ended, results from
    /// Outcome::records on have no meaning, and joined texts are Outcome::records many.
    /// @{
    Outcome evaluate(std::size_t count, std::u16string* results);
    Outcome evaluate(std::size_t count, double* results);
    Outcome evaluate(std::size_t count, bool* results);
    Outcome evaluate(std::size_t count, JoinedTexts& results);
    /// @}

    /// Sets the function that evaluate() calls meanwhile; an empty one, the default, for none.
    void setProgress(Progress progress);

  private:
    std::unique_ptr<kx::ColumnsBackend> _mColumns;
};
