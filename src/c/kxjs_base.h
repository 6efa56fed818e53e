/// @file
/// Status codes and versions of the C interface. kxjsparser.h says what holds for all functions.
#ifndef KXJS_BASE_H
#define KXJS_BASE_H

// Checks for C++ mean other declarations.
// NOLINTBEGIN(modernize-deprecated-headers,modernize-use-using)

#include <stddef.h>
#include <stdint.h>

/// Marks a function that the library exports.
#if defined(__GNUC__)
#define KXJS_C_API __attribute__((visibility("default")))
#else
#define KXJS_C_API
#endif

/// The version of this header. kxjs_version() has that of the library.
/// @{
#define KXJS_VERSION_MAJOR 0
#define KXJS_VERSION_MINOR 1
#define KXJS_VERSION_PATCH 0
#define KXJS_VERSION_NUMBER \
    (KXJS_VERSION_MAJOR * 1000000 + KXJS_VERSION_MINOR * 1000 + KXJS_VERSION_PATCH)
/// @}

/// The longest text that a function takes, in bytes or UTF-16 code units: what V8 can hold.
#define KXJS_MAX_LENGTH 536870888

/// A string literal of C as the two arguments that a UTF-8 text takes.
#define KXJS_LITERAL(literal) ("" literal), (sizeof(literal) - 1)

#ifdef __cplusplus
extern "C" {
#endif

/// How a call ended: one of the constants below.
typedef int32_t kxjs_status;

enum {
    KXJS_OK = 0,  ///< the call did what it was asked to do
    /// The script ran, and its result contains "NaN". Result and error text are both set.
    KXJS_RESULT_NAN = 1,
    /// The formula failed: kxjs_host_failure() and the error text, or the findings, say why.
    KXJS_FORMULA_FAILED = 2,
    /// A limit, kxjs_host_terminate(), a reset or the progress function ended an evaluation of
    /// columns. The error text says which.
    KXJS_ENDED = 3,
    /// There is no such script, variable, failure or entry.
    KXJS_NOT_FOUND = 4,
    /// The name or the text is not allowed here.
    KXJS_REFUSED = 5,
    /// The columns have no formula, or a reset of their host has taken it.
    KXJS_NOT_COMPILED = 6,

    /// A pointer that must not be null is.
    KXJS_NULL_ARGUMENT = 16,
    /// A number, a structure's size or the contents of a column are outside what is allowed.
    KXJS_BAD_ARGUMENT = 17,
    /// The handle was freed, never made, or is of another kind.
    KXJS_BAD_HANDLE = 18,
    /// The thread is not the host's, the engine's isolate is another one, or the process is a fork.
    KXJS_WRONG_THREAD = 19,
    /// Bytes are not UTF-8.
    KXJS_INVALID_UTF8 = 20,
    /// A text is longer than KXJS_MAX_LENGTH, or a table than memory can be.
    KXJS_TOO_LONG = 21,
    /// A running evaluation uses the object.
    KXJS_BUSY = 22,

    /// The application's memory ended.
    KXJS_NO_MEMORY = 32,
    /// The worker of an isolated host could not be started; the error text says why.
    KXJS_NO_WORKER = 33,
    /// The system refused what the library needs, such as a thread.
    KXJS_SYSTEM_ERROR = 34,
    /// The library itself has a mistake.
    KXJS_INTERNAL_ERROR = 35
};

/// A short English sentence for a status; never null, for unknown numbers too. It ends in a zero
/// byte and lives as long as the process. Any thread.
///
///     fprintf(stderr, "%s\n", kxjs_status_text(status));
KXJS_C_API char const* kxjs_status_text(kxjs_status status);

/// The version of the loaded library, as KXJS_VERSION_NUMBER. Any thread.
///
///     if (kxjs_version() < KXJS_VERSION_NUMBER) complain("the library is older than expected");
KXJS_C_API int32_t kxjs_version(void);

/// The same as text, such as "0.1.0". It lives as long as the process. Any thread.
KXJS_C_API char const* kxjs_version_text(void);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers,modernize-use-using)

#endif
