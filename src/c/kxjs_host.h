/// @file
/// Script hosts: variables, formulas, failures, limits.
#ifndef KXJS_HOST_H
#define KXJS_HOST_H

// Checks for C++ mean other declarations.
// NOLINTBEGIN(modernize-deprecated-headers,modernize-use-using)

#include "c/kxjs_base.h"
#include "c/kxjs_text.h"
#include "c/kxjs_variable.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A script host: one JavaScript context, the variables bound to it and its compiled scripts. Use a
/// host on the thread that made it; kxjs_host_terminate() and kxjs_host_free() work on any thread.
typedef struct kxjs_host kxjs_host;

/// Makes a host without variables, scripts and, until kxjs_host_initialize(), built-in functions.
/// Free it with kxjs_host_free(). It belongs to the calling thread.
KXJS_C_API kxjs_status kxjs_host_create(kxjs_host** host);

/// The pieces of the sandbox that a worker process is in; sets of them are sums.
enum {
    KXJS_SANDBOX_NO_NEW_PRIVILEGES = 1,  ///< no program that it could run would gain rights
    KXJS_SANDBOX_NO_CAPABILITIES = 2,    ///< it has no privileges
    KXJS_SANDBOX_LANDLOCK = 4,           ///< the kernel refuses files, and TCP where it knows how
    KXJS_SANDBOX_SYSTEM_CALL_FILTER = 8  ///< about thirty system calls are left
};

/// How an isolated host runs its scripts. kxjs_isolation_init() fills in the defaults.
///
///     kxjs_isolation isolation;
///     kxjs_isolation_init(&isolation, sizeof isolation);
///     isolation.required_sandbox = KXJS_SANDBOX_SYSTEM_CALL_FILTER;
typedef struct kxjs_isolation {
    size_t struct_size;  ///< set by kxjs_isolation_init()
    /// The most private memory that the worker may take for formulas, in bytes: four times the
    /// limit that kxjs_host_set_memory_limit() sets is a good value. A worker that needs more ends.
    uint64_t memory_limit;
    /// How long a script may run on after its time limit, or after kxjs_host_terminate(), before
    /// its worker is ended; in milliseconds.
    int64_t grace_ms;
    /// Path of the program kxjs-worker, as the system takes it; null where it is installed with the
    /// library. It has to be of the library's version.
    char const* worker;
    size_t worker_length;       ///< of the path, in bytes
    uint32_t required_sandbox;  ///< pieces of the sandbox without which there is no host
    uint32_t reserved;          ///< 0
    /// Bytes of memory that the host has in common with its worker: see kxjs_host_shared_memory().
    /// It takes no memory until it is used, and makes the host ready some milliseconds later.
    uint64_t shared_memory;
} kxjs_isolation;

/// Fills in the defaults. `struct_size` is sizeof the structure as the application knows it.
KXJS_C_API kxjs_status kxjs_isolation_init(kxjs_isolation* isolation, size_t struct_size);

/// Makes an isolated host: its scripts run in a worker process of their own, in a sandbox, and can
/// at worst end that process. Every function works as for other hosts. Null for `isolation` means
/// the defaults. KXJS_NO_WORKER, with the reason in `error`, where the worker cannot be started, is
/// of another version, or lacks a required piece of the sandbox.
KXJS_C_API kxjs_status kxjs_host_create_isolated(kxjs_isolation const* isolation, kxjs_host** host,
                                                 kxjs_text* error);

/// Frees a host on any thread; columns of the host, which keep it, work on until they are freed.
/// Null is allowed.
KXJS_C_API kxjs_status kxjs_host_free(kxjs_host* host);

/// Which pieces of the sandbox the worker of an isolated host is in. KXJS_NOT_FOUND for others.
KXJS_C_API kxjs_status kxjs_host_sandbox(kxjs_host* host, uint32_t* pieces);

/// Memory that an isolated host has in common with its worker: kxjs_isolation.shared_memory bytes,
/// zero at first, aligned for every type. It is the host's, and lives until that is freed. Columns
/// of numbers and results that lie there are not copied. The worker can write there at any time:
/// should a formula take it over, nothing that lies there is right any more. KXJS_NOT_FOUND, and
/// null, where the host has none.
KXJS_C_API kxjs_status kxjs_host_shared_memory(kxjs_host* host, void** memory, size_t* length);

/// Defines the built-in functions. KXJS_FORMULA_FAILED where a limit ended that, the thread's stack
/// is nearly used up, or scripts have locked the names.
KXJS_C_API kxjs_status kxjs_host_initialize(kxjs_host* host);

/// Forgets all variables and compiled scripts, so that the next script is 0. The context stays,
/// with the built-in functions and the other globals of scripts.
KXJS_C_API kxjs_status kxjs_host_reset(kxjs_host* host);

/// Binds a variable, in place of an earlier one of the same name. A script sees the variables that
/// were bound when it was parsed, with the values that they have when it runs. KXJS_REFUSED for the
/// name "ouraccessor" and for a blank one. A bool is true where it is not 0.
///
///     kxjs_host_set_double(host, KXJS_LITERAL("PRICE"), 12.5);
/// @{
KXJS_C_API kxjs_status kxjs_host_set_int32(kxjs_host* host, char const* key, size_t key_length,
                                           int32_t value);
KXJS_C_API kxjs_status kxjs_host_set_int32_utf16(kxjs_host* host, uint16_t const* key,
                                                 size_t key_length, int32_t value);
KXJS_C_API kxjs_status kxjs_host_set_double(kxjs_host* host, char const* key, size_t key_length,
                                            double value);
KXJS_C_API kxjs_status kxjs_host_set_double_utf16(kxjs_host* host, uint16_t const* key,
                                                  size_t key_length, double value);
KXJS_C_API kxjs_status kxjs_host_set_bool(kxjs_host* host, char const* key, size_t key_length,
                                          int32_t value);
KXJS_C_API kxjs_status kxjs_host_set_bool_utf16(kxjs_host* host, uint16_t const* key,
                                                size_t key_length, int32_t value);
KXJS_C_API kxjs_status kxjs_host_set_text(kxjs_host* host, char const* key, size_t key_length,
                                          char const* value, size_t value_length);
KXJS_C_API kxjs_status kxjs_host_set_text_utf16(kxjs_host* host, uint16_t const* key,
                                                size_t key_length, uint16_t const* value,
                                                size_t value_length);
/// @}

/// Binds a copy of `variable` under its key; otherwise as the functions above. KXJS_REFUSED also
/// where it has no value.
KXJS_C_API kxjs_status kxjs_host_set_variable(kxjs_host* host, kxjs_variable* variable);

/// The type of a bound variable: a KXJS_TYPE_ constant. KXJS_NOT_FOUND where none has this name.
/// @{
KXJS_C_API kxjs_status kxjs_host_variable_type(kxjs_host* host, char const* key, size_t key_length,
                                               int32_t* type);
KXJS_C_API kxjs_status kxjs_host_variable_type_utf16(kxjs_host* host, uint16_t const* key,
                                                     size_t key_length, int32_t* type);
/// @}

/// Compiles `source`, JavaScript (kxjs_convert() makes it of the older language), and stores it as
/// the next `script`, counted from 0. KXJS_FORMULA_FAILED, with the text in `error` and -1 in
/// `script`, where it does not compile.
/// @{
KXJS_C_API kxjs_status kxjs_host_parse(kxjs_host* host, char const* source, size_t source_length,
                                       int32_t* script, kxjs_text* error);
KXJS_C_API kxjs_status kxjs_host_parse_utf16(kxjs_host* host, uint16_t const* source,
                                             size_t source_length, int32_t* script,
                                             kxjs_text* error);
/// @}

/// Runs a script. `result` becomes the text of its completion value and `error` empty; or `result`
/// empty and `error` the failure's text, with KXJS_FORMULA_FAILED. KXJS_RESULT_NAN where the result
/// contains "NaN": both have texts then. KXJS_NOT_FOUND where there is no such script.
KXJS_C_API kxjs_status kxjs_host_execute(kxjs_host* host, int32_t script, kxjs_text* result,
                                         kxjs_text* error);

/// Compiles `source`, runs it once and forgets it; otherwise as kxjs_host_execute().
///
///     kxjs_host_evaluate(host, KXJS_LITERAL("ROUND(1.25, 1)"), result, error);
/// @{
KXJS_C_API kxjs_status kxjs_host_evaluate(kxjs_host* host, char const* source, size_t source_length,
                                          kxjs_text* result, kxjs_text* error);
KXJS_C_API kxjs_status kxjs_host_evaluate_utf16(kxjs_host* host, uint16_t const* source,
                                                size_t source_length, kxjs_text* result,
                                                kxjs_text* error);
/// @}

/// Which step failed.
enum {
    KXJS_FAILURE_COMPILE = 0,      ///< the source did not compile
    KXJS_FAILURE_RUN = 1,          ///< the script threw an exception
    KXJS_FAILURE_LIMIT = 2,        ///< a limit ended the script, or kxjs_host_terminate() did
    KXJS_FAILURE_WORKER_ENDED = 3  ///< an isolated host's worker process ended with the script
};

/// A failure's place in the source as the application wrote it. Lines and columns count from 1,
/// columns in UTF-16 code units; 0 stands for an unknown place.
typedef struct kxjs_failure {
    size_t struct_size;  ///< set before the call
    int32_t kind;        ///< a KXJS_FAILURE_ constant
    int32_t line;        ///< from 1, or 0
    int32_t column;      ///< of the mistake's begin, from 1, or 0
    int32_t end_column;  ///< the first column behind the mistake, on the same line
    /// 1 where the exception comes from elsewhere, and the place is the call that led there.
    int32_t is_in_call;
    int32_t frame_count;  ///< for kxjs_host_failure_frame()
} kxjs_failure;

/// The failure of the last initialize, parse, execute, evaluate or reset. KXJS_NOT_FOUND where that
/// succeeded. `message` becomes the exception's text, `source_line` the line's text.
///
///     kxjs_failure failure = {sizeof failure, 0, 0, 0, 0, 0, 0};
///     if (kxjs_host_failure(host, &failure, message, NULL) == KXJS_OK)
///         underline(failure.line, failure.column, failure.end_column);
KXJS_C_API kxjs_status kxjs_host_failure(kxjs_host* host, kxjs_failure* failure, kxjs_text* message,
                                         kxjs_text* source_line);

/// A call that was going on when the exception was made.
typedef struct kxjs_frame {
    size_t struct_size;    ///< set before the call
    int32_t line;          ///< from 1, in the text that the frame lies in
    int32_t column;        ///< from 1, in UTF-16 code units
    int32_t is_in_source;  ///< 1 where that text is the application's source
    int32_t reserved;      ///< 0
} kxjs_frame;

/// A frame of that failure, innermost first; `function` becomes the name of the function, empty for
/// a script's own level. KXJS_NOT_FOUND from frame_count on.
KXJS_C_API kxjs_status kxjs_host_failure_frame(kxjs_host* host, int32_t index, kxjs_frame* frame,
                                               kxjs_text* function);

/// Ends each run that takes longer, in milliseconds; 0, the default, is no limit. The host goes on
/// working. KXJS_SYSTEM_ERROR where the library cannot start its watching thread.
KXJS_C_API kxjs_status kxjs_host_set_time_limit(kxjs_host* host, int64_t milliseconds);

/// Ends each run that needs more memory: a limit of all hosts of the thread, in bytes, at most 4
/// GiB. Of an isolated host, its own.
KXJS_C_API kxjs_status kxjs_host_set_memory_limit(kxjs_host* host, uint64_t bytes);

/// Whether simple formulas may be evaluated without V8, with the same results; 1 by default. 0 is
/// for comparisons.
KXJS_C_API kxjs_status kxjs_host_set_native_evaluation(kxjs_host* host, int32_t is_on);

/// Ends the run that is going on in the host, which then fails with an error text that says so;
/// else nothing happens. Any thread, as long as no other frees the host meanwhile.
KXJS_C_API kxjs_status kxjs_host_terminate(kxjs_host* host);

/// The names that `source` uses and nothing defines, in `names`. The source is run in a host of its
/// own, in process or, where `isolation` is not null, isolated. 0 for `time_limit_ms` is no limit;
/// a source that makes up names at run time then never ends. KXJS_FORMULA_FAILED, with the reason
/// in `error` and the names found until then, where the source does not compile or a limit ended
/// it. Any thread.
/// @{
KXJS_C_API kxjs_status kxjs_extract(char const* source, size_t source_length, int64_t time_limit_ms,
                                    kxjs_isolation const* isolation, kxjs_texts* names,
                                    kxjs_text* error);
KXJS_C_API kxjs_status kxjs_extract_utf16(uint16_t const* source, size_t source_length,
                                          int64_t time_limit_ms, kxjs_isolation const* isolation,
                                          kxjs_texts* names, kxjs_text* error);
/// @}

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers,modernize-use-using)

#endif
