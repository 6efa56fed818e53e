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
/// Every record gives what it gives one by one: with KxJsParser::addSetVariable() for each column
/// and KxJsParser::execute(), variables of the host included. Text columns are cut as KxJsVariable
/// cuts them, and keys are bound by the same rule: where they occur anywhere in the source. A
/// single expression without effects runs inside the engine for many records at once; everything
/// else is run one by one, with the same results.
///
/// State: records run in order, and a formula may leave something in a global for the next record,
/// or for later scripts; nothing here clears it. Afterwards the columns are variables of the host,
/// with the values of the last record. Expressions may run more than once for a record, which shows
/// only where a script has replaced functions of the engine by ones with effects, and such
/// replacements must not read the columns' globals. A formula of which records depend on each other
/// through such functions is outside of what is promised.
///
/// Memory: numbers and truth values are read where they are, never written, and no script can reach
/// them. What bind() was given has to stay as it is during evaluate() only.
///
/// Limits: those of the host hold for each evaluate() as a whole: its time limit, its memory limit,
/// and KxJsParser::terminate(). The memory limit is about what scripts take: results and failures
/// are the application's. A failure takes 56 bytes, and for a moment up to twice that while the
/// list grows; a text that is none of the last 16 different ones takes its own memory, in all some
/// 500 bytes a failure where each is about something else. So evaluate long tables in blocks:
/// bind() the next one, and evaluate() again.
///
/// Errors: std::bad_alloc, beside the error texts. After compile() has thrown, compile again: the
/// earlier formula may be gone. Where evaluate() throws, results
/// hold nothing of use, formula and columns are as before, and the host has the columns' values of
/// some record.
///
/// Threads: as the host's. The host has to live as long.
class KXJS_API KxJsColumns {
  public:
    /// A text that does not change: a std::u16string of which copies share the memory. Equal texts
    /// of an evaluation mostly do.
    class KXJS_API SharedText {
      public:
        SharedText() = default;
        explicit SharedText(std::u16string text);

        std::u16string const& str() const;
        operator std::u16string const&() const { return str(); }
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

    /// A record that failed. For texts also one whose result contains "NaN", which it keeps.
    struct Failure {
        std::size_t record;  ///< from 0
        SharedText error;    ///< what execute() gives: lines are counted as there
        /// The exception's text and the place in the formula as compile() got it, as KxJsFailure
        /// tells them: from 1, all three 0 where no place is known.
        /// @{
        SharedText message = {};
        std::int32_t line = 0;
        std::int32_t column = 0;
        std::int32_t endColumn = 0;
        /// @}
    };

    /// What came of an evaluation.
    struct Outcome {
        std::size_t records = 0;        ///< evaluated: fewer than asked for when it was ended
        std::vector<Failure> failures;  ///< in the order of the records
        std::u16string error;           ///< why it was ended or not begun; else empty
    };

    /// Called again and again during an evaluation, with the number of records that are done:
    /// about every hundredth of a second or more often, but not before a record has ended, and not
    /// before some thousand have where they run inside the engine. Returning false ends the
    /// evaluation, and means nothing after the last record.
    ///
    /// It may use the host: variables that it sets and scripts that it runs are seen from the
    /// record `records` on, the first one that is not done. How many are done when it is called
    /// depends on the machine. The columns' variables have the values of some record that is done.
    /// After KxJsParser::reset() the evaluation is ended.
    ///
    /// It may not use these columns: while they are evaluated, bind() and setProgress() throw
    /// std::logic_error, compile() and evaluate() give an error text. An exception goes to the
    /// caller of evaluate(); results are there for the records of the last call.
    using Progress = std::function<bool(std::size_t records)>;

    /// Columns over `host`, in whose context formulas run.
    explicit KxJsColumns(KxJsParser& host);
    ~KxJsColumns();
    KxJsColumns(KxJsColumns const&) = delete;
    KxJsColumns& operator=(KxJsColumns const&) = delete;

    /// Names a column and says where its values are: of record 0 first. Giving an existing column
    /// other memory, the next block of a long table, needs no new compilation; a new column does.
    /// @{
    void bind(std::u16string const& name, double const* values);
    void bind(std::u16string const& name, std::int32_t const* values);
    void bind(std::u16string const& name, bool const* values);
    void bind(std::u16string const& name, std::u16string const* values);
    void bind(std::u16string const& name, std::u16string_view const* values);
    /// @}

    /// Compiles `source`, JavaScript as KxJsParser::parse() takes it, in place of an earlier one.
    /// Binds the columns to the host, with values of their types. False where that fails: `error`
    /// says why, and is left alone otherwise. The earlier formula is gone then, except
    /// where it is being evaluated, or the thread is not the host's. After KxJsParser::reset() a
    /// formula has to be compiled again.
    bool compile(std::u16string const& source, std::u16string& error);

    /// Evaluates the formula for the records 0 to `count`-1. The type of `results`, which has room
    /// for as many, decides what the value of the formula becomes:
    ///
    /// - text: exactly the text that KxJsParser::execute() gives; empty for a failing record.
    /// - number: by JavaScript's arithmetic rules, as unary plus has it: true is 1, the text "1e3"
    ///   1000, undefined and a text that is no number NaN (which is no failure), null 0. NaN for a
    ///   failing record.
    /// - truth value: by JavaScript's rules for conditions; false for a failing record.
    ///
    /// A failing record does not end the evaluation. Where it is ended, results from
    /// Outcome::records on hold nothing of use.
    /// @{
    Outcome evaluate(std::size_t count, std::u16string* results);
    Outcome evaluate(std::size_t count, double* results);
    Outcome evaluate(std::size_t count, bool* results);
    /// @}

    /// Sets who watches; an empty function, the default, is nobody.
    void setProgress(Progress progress);

  private:
    std::unique_ptr<kx::ColumnsBackend> _mColumns;
};
