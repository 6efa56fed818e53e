/// @file
/// One formula over all records of a table whose columns lie in the application's memory.
#ifndef KXJS_COLUMNS_H
#define KXJS_COLUMNS_H

// Checks for C++ mean other declarations.
// NOLINTBEGIN(modernize-deprecated-headers,modernize-use-using)

#include "c/kxjs_base.h"
#include "c/kxjs_host.h"
#include "c/kxjs_text.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Columns over a host, in whose context their formula runs. Each record has the result and the
/// error text that it has with one variable for each column and kxjs_host_execute(). Values are
/// read where they are. Afterwards the columns are variables of the host, with the values of the
/// last record. Use columns on the thread of their host.
///
///     kxjs_columns_create(host, &columns);
///     kxjs_columns_bind_double(columns, KXJS_LITERAL("PRICE"), prices, count);
///     kxjs_columns_bind_int32(columns, KXJS_LITERAL("QTY"), quantities, count);
///     kxjs_columns_compile(columns, KXJS_LITERAL("PRICE*QTY"), error);
///     kxjs_columns_evaluate_double(columns, totals, count, NULL, error);
typedef struct kxjs_columns kxjs_columns;

/// Makes columns over `host`; free them with kxjs_columns_free(). They keep the host: it may be
/// freed first.
KXJS_C_API kxjs_status kxjs_columns_create(kxjs_host* host, kxjs_columns** columns);

/// Frees columns, on any thread. Inside their progress function nothing happens, and KXJS_BUSY
/// comes back. Null is allowed.
KXJS_C_API kxjs_status kxjs_columns_free(kxjs_columns* columns);

/// A text of UTF-16 in the application's memory. `data` may be null where `length` is 0.
typedef struct kxjs_span_utf16 {
    uint16_t const* data;  ///< the first unit
    size_t length;         ///< in units
} kxjs_span_utf16;

/// Names a column and says where its `count` values are. They must stay there, and as they are,
/// during evaluations only. Binding an existing column again, to the next block of a long table,
/// needs no new kxjs_columns_compile(); a new column does. A bool is a byte, 0 or 1. Texts are cut
/// as those of variables. The list of kxjs_columns_bind_texts() is kept, and may be freed.
/// @{
KXJS_C_API kxjs_status kxjs_columns_bind_double(kxjs_columns* columns, char const* name,
                                                size_t name_length, double const* values,
                                                size_t count);
KXJS_C_API kxjs_status kxjs_columns_bind_double_utf16(kxjs_columns* columns, uint16_t const* name,
                                                      size_t name_length, double const* values,
                                                      size_t count);
KXJS_C_API kxjs_status kxjs_columns_bind_int32(kxjs_columns* columns, char const* name,
                                               size_t name_length, int32_t const* values,
                                               size_t count);
KXJS_C_API kxjs_status kxjs_columns_bind_int32_utf16(kxjs_columns* columns, uint16_t const* name,
                                                     size_t name_length, int32_t const* values,
                                                     size_t count);
KXJS_C_API kxjs_status kxjs_columns_bind_bool(kxjs_columns* columns, char const* name,
                                              size_t name_length, uint8_t const* values,
                                              size_t count);
KXJS_C_API kxjs_status kxjs_columns_bind_bool_utf16(kxjs_columns* columns, uint16_t const* name,
                                                    size_t name_length, uint8_t const* values,
                                                    size_t count);
KXJS_C_API kxjs_status kxjs_columns_bind_spans(kxjs_columns* columns, char const* name,
                                               size_t name_length, kxjs_span_utf16 const* values,
                                               size_t count);
KXJS_C_API kxjs_status kxjs_columns_bind_spans_utf16(kxjs_columns* columns, uint16_t const* name,
                                                     size_t name_length,
                                                     kxjs_span_utf16 const* values, size_t count);
KXJS_C_API kxjs_status kxjs_columns_bind_texts(kxjs_columns* columns, char const* name,
                                               size_t name_length, kxjs_texts* values);
KXJS_C_API kxjs_status kxjs_columns_bind_texts_utf16(kxjs_columns* columns, uint16_t const* name,
                                                     size_t name_length, kxjs_texts* values);
/// @}

/// Compiles `source`, JavaScript as kxjs_host_parse() takes it, in place of an earlier formula, and
/// binds the columns to the host. KXJS_FORMULA_FAILED, with the text in `error`, where that fails;
/// the earlier formula is gone then. kxjs_host_failure() tells the place. To be repeated after
/// kxjs_host_reset().
/// @{
KXJS_C_API kxjs_status kxjs_columns_compile(kxjs_columns* columns, char const* source,
                                            size_t source_length, kxjs_text* error);
KXJS_C_API kxjs_status kxjs_columns_compile_utf16(kxjs_columns* columns, uint16_t const* source,
                                                  size_t source_length, kxjs_text* error);
/// @}

/// Called during an evaluation, about every hundredth of a second, with the number of records that
/// are done and the pointer that the application gave. Returning 0 ends the evaluation. It may use
/// the host; with these columns, and with lists of texts that the evaluation uses, it gets
/// KXJS_BUSY. It must return: no exception or longjmp may leave it.
typedef int32_t (*kxjs_progress)(void* context, size_t records);

/// Sets the progress function; null, the default, for none.
KXJS_C_API kxjs_status kxjs_columns_set_progress(kxjs_columns* columns, kxjs_progress progress,
                                                 void* context);

/// Evaluates the formula for the records 0 to `count` - 1; every column has at least as many, or
/// KXJS_BAD_ARGUMENT comes back. `results` has space for `count` numbers (as unary plus gives them)
/// or bytes 0 and 1 (as a condition takes them). The list of texts gets `count` entries.
///
/// A failing record gets NaN, 0 or the empty text, and does not end the evaluation: KXJS_OK says
/// that all records were evaluated, and kxjs_columns_failure_count() how many failed. KXJS_ENDED
/// says that only `records` were, and `error` why; later results have no meaning. `records` may be
/// null. The host's limits and kxjs_host_terminate() hold for each call as a whole.
/// @{
KXJS_C_API kxjs_status kxjs_columns_evaluate_double(kxjs_columns* columns, double* results,
                                                    size_t count, size_t* records,
                                                    kxjs_text* error);
KXJS_C_API kxjs_status kxjs_columns_evaluate_bool(kxjs_columns* columns, uint8_t* results,
                                                  size_t count, size_t* records, kxjs_text* error);
KXJS_C_API kxjs_status kxjs_columns_evaluate_texts(kxjs_columns* columns, kxjs_texts* results,
                                                   size_t count, size_t* records, kxjs_text* error);
/// @}

/// How many records failed in the last evaluation, those with a result that contains "NaN"
/// included.
KXJS_C_API kxjs_status kxjs_columns_failure_count(kxjs_columns* columns, size_t* count);

/// The numbers of those records, from 0, in order, at once: `records` has space for `count`, which
/// is at most kxjs_columns_failure_count(), or KXJS_BAD_ARGUMENT comes back.
KXJS_C_API kxjs_status kxjs_columns_failure_records(kxjs_columns* columns, size_t* records,
                                                    size_t count);

/// A record that failed, with the place of the mistake as kxjs_failure has it.
typedef struct kxjs_column_failure {
    size_t struct_size;  ///< set before the call
    size_t record;       ///< from 0
    int32_t line;        ///< from 1, or 0
    int32_t column;      ///< from 1, or 0
    int32_t end_column;  ///< the first column behind the mistake, or 0
    int32_t reserved;    ///< 0
} kxjs_column_failure;

/// The failure `index` of the last evaluation, in the order of the records. `error` becomes the
/// error text of kxjs_host_execute(), `message` the exception's text.
KXJS_C_API kxjs_status kxjs_columns_failure(kxjs_columns* columns, size_t index,
                                            kxjs_column_failure* failure, kxjs_text* error,
                                            kxjs_text* message);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers,modernize-use-using)

#endif
