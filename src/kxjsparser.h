/// @file
/// The C interface: everything that the library offers applications, for C and for every language
/// that calls C. This header includes all others; each can be included by itself too.
///
///     kxjs_host* host = NULL;
///     kxjs_text *result = NULL, *error = NULL;
///     int32_t script = 0;
///     kxjs_host_create(&host);
///     kxjs_text_create(&result);
///     kxjs_text_create(&error);
///     kxjs_host_initialize(host);
///     kxjs_host_set_double(host, KXJS_LITERAL("PRICE"), 12.5);
///     if (kxjs_host_parse(host, KXJS_LITERAL("ROUND(PRICE*1.19,2)"), &script, error) == KXJS_OK)
///         kxjs_host_execute(host, script, result, error);
///
/// Status: every function returns one, but for three that cannot fail. Where it is not KXJS_OK, the
/// call has done nothing, unless its comment says more. No exception leaves a function.
///
/// Handles: objects are known by handles, which look like pointers and are none. A `_create`
/// function makes one, and the `_free` function of its kind ends it. A handle that is null, freed,
/// never made or of another kind gives KXJS_NULL_ARGUMENT or KXJS_BAD_HANDLE. A `_free` function
/// takes null. A handle freed inside a progress function is gone at once; its object ends with the
/// call that uses it.
///
/// Texts go in as a pointer and a length, as UTF-8; the function of the same name with `_utf16` at
/// its end takes UTF-16 instead, and then lengths count code units. A null pointer is allowed with
/// length 0. The library copies what it needs. Bytes that are not UTF-8 give KXJS_INVALID_UTF8,
/// more than KXJS_MAX_LENGTH units KXJS_TOO_LONG; neither is read any further.
///
/// Texts come out in a `kxjs_text`, a list of texts in a `kxjs_texts`. The application makes and
/// frees it, and may use it for any number of calls: each replaces what it holds. Pointers to its
/// contents are valid until then. Where a text is of no interest, the handle may be null.
///
/// Structures that may grow begin with `struct_size`: set it to sizeof, in both directions.
///
/// Threads: a host, its variables and its columns are used on the thread that made the host, or
/// KXJS_WRONG_THREAD comes back. kxjs_host_terminate() and the `_free` functions may be called
/// on any thread. Other objects may be used on any thread, by one at a time. Functions without a
/// handle may be called on any thread at any time.
#ifndef KXJSPARSER_H
#define KXJSPARSER_H

#include "c/kxjs_base.h"
#include "c/kxjs_catalogue.h"
#include "c/kxjs_columns.h"
#include "c/kxjs_host.h"
#include "c/kxjs_text.h"
#include "c/kxjs_translator.h"
#include "c/kxjs_variable.h"

#endif
