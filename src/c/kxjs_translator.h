/// @file
/// From the older upper-case language to JavaScript: the exact conversion, the translation that
/// keeps the meaning, and the check that compares the two.
#ifndef KXJS_TRANSLATOR_H
#define KXJS_TRANSLATOR_H

// Checks for C++ mean other declarations.
// NOLINTBEGIN(modernize-deprecated-headers,modernize-use-using)

#include "c/kxjs_base.h"
#include "c/kxjs_text.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Converts a formula of the older language by the fixed list of rules that formulas in use depend
/// on. Every text can be converted; a formula ends at its first zero. Any thread.
///
///     kxjs_convert(KXJS_LITERAL("IIF(A>2 .AND. B<>0, 'OK', 'KO')"), java_script);
///     // " IIF(A>2 && B!=0, 'OK', 'KO')"
/// @{
KXJS_C_API kxjs_status kxjs_convert(char const* formula, size_t length, kxjs_text* java_script);
KXJS_C_API kxjs_status kxjs_convert_utf16(uint16_t const* formula, size_t length,
                                          kxjs_text* java_script);
/// @}

/// Translates formulas by their grammar, and checks what kxjs_convert() does to them. Settings are
/// made by one thread, before others use it; any number of threads may translate and check at once.
typedef struct kxjs_translator kxjs_translator;

/// Makes a translator with the defaults; free it with kxjs_translator_free().
KXJS_C_API kxjs_status kxjs_translator_create(kxjs_translator** translator);

/// Frees a translator. Null is allowed.
KXJS_C_API kxjs_status kxjs_translator_free(kxjs_translator* translator);

/// The kind of a variable's values: a promise, by which translations leave out what cannot happen.
enum { KXJS_KIND_UNKNOWN = 0, KXJS_KIND_TEXT = 1, KXJS_KIND_NUMBER = 2, KXJS_KIND_LOGICAL = 3 };

/// Adds a variable that the application binds, as it is bound, in its own case. Names in formulas
/// mean these variables whatever their case; others are taken in upper case.
/// @{
KXJS_C_API kxjs_status kxjs_translator_add_variable(kxjs_translator* translator, char const* key,
                                                    size_t key_length, int32_t kind);
KXJS_C_API kxjs_status kxjs_translator_add_variable_utf16(kxjs_translator* translator,
                                                          uint16_t const* key, size_t key_length,
                                                          int32_t kind);
/// @}

/// Adds the name of a function that the application has defined itself; calls of others are
/// findings.
/// @{
KXJS_C_API kxjs_status kxjs_translator_add_function(kxjs_translator* translator, char const* name,
                                                    size_t name_length);
KXJS_C_API kxjs_status kxjs_translator_add_function_utf16(kxjs_translator* translator,
                                                          uint16_t const* name, size_t name_length);
/// @}

/// How dates are written and read: YYYY or YY, MM and DD, each once, in any order, with any
/// separators; "YYYY-MM-DD" by default. KXJS_REFUSED for others.
/// @{
KXJS_C_API kxjs_status kxjs_translator_set_date_format(kxjs_translator* translator,
                                                       char const* format, size_t length);
KXJS_C_API kxjs_status kxjs_translator_set_date_format_utf16(kxjs_translator* translator,
                                                             uint16_t const* format, size_t length);
/// @}

/// Years of two digits lie in the hundred years from this one on; 1900 by default.
KXJS_C_API kxjs_status kxjs_translator_set_epoch(kxjs_translator* translator, int32_t year);

/// Whether texts are compared in full, but for trailing blanks (1), or as long as the text on the
/// right goes on (0, the default).
KXJS_C_API kxjs_status kxjs_translator_set_exact(kxjs_translator* translator, int32_t is_exact);

/// Whether names that were not added are findings (1) or not (0, the default).
KXJS_C_API kxjs_status kxjs_translator_set_strict(kxjs_translator* translator, int32_t is_strict);

/// What stands against a translation, or what a conversion does to a formula: a list that calls
/// fill. Use one on any thread, by one thread at a time.
typedef struct kxjs_findings kxjs_findings;

/// Makes an empty list; free it with kxjs_findings_free().
KXJS_C_API kxjs_status kxjs_findings_create(kxjs_findings** findings);

/// Frees a list. Null is allowed.
KXJS_C_API kxjs_status kxjs_findings_free(kxjs_findings* findings);

/// How many findings there are.
KXJS_C_API kxjs_status kxjs_findings_count(kxjs_findings* findings, size_t* count);

/// The place of a finding in the formula, in UTF-16 code units from 0, and the part of the formula
/// that its rewriting replaces.
typedef struct kxjs_finding {
    size_t struct_size;       ///< set before the call
    size_t position;          ///< from 0
    size_t length;            ///< in code units
    size_t rewrite_position;  ///< 0 where there is no rewriting
    size_t rewrite_length;    ///< in code units
} kxjs_finding;

/// The finding `index`. `code` becomes "SYNTAX" or a name such as "EQUALS_ASSIGNS", `text` what is
/// wrong, in English. Of kxjs_translator_check(), `java_script` becomes what the conversion makes
/// of the part, `rewrite` what to write instead; else both become empty.
KXJS_C_API kxjs_status kxjs_findings_get(kxjs_findings* findings, size_t index,
                                         kxjs_finding* finding, kxjs_text* code, kxjs_text* text,
                                         kxjs_text* java_script, kxjs_text* rewrite);

/// Translates `formula` into one JavaScript expression that means the same. It runs in hosts that
/// have evaluated kxjs_run_time_part(). `variables` gets the formula's variables, as the JavaScript
/// has them. KXJS_FORMULA_FAILED, with the reasons in `findings`, where there is no translation;
/// `findings` and `variables` may be null.
/// @{
KXJS_C_API kxjs_status kxjs_translator_translate(kxjs_translator* translator, char const* formula,
                                                 size_t length, kxjs_text* java_script,
                                                 kxjs_findings* findings, kxjs_texts* variables);
KXJS_C_API kxjs_status kxjs_translator_translate_utf16(kxjs_translator* translator,
                                                       uint16_t const* formula, size_t length,
                                                       kxjs_text* java_script,
                                                       kxjs_findings* findings,
                                                       kxjs_texts* variables);
/// @}

/// What the exact conversion does to a formula; from best to worst.
enum {
    KXJS_VERDICT_SAME = 0,          ///< keeps its meaning
    KXJS_VERDICT_DIFFERS = 1,       ///< a function or a comparison of texts means another thing
    KXJS_VERDICT_UNKNOWN = 2,       ///< fails when it runs: something is not defined
    KXJS_VERDICT_CHANGED = 3,       ///< compiles to something else
    KXJS_VERDICT_FAILS = 4,         ///< does not compile
    KXJS_VERDICT_NOT_A_FORMULA = 5  ///< is none of the older language
};

/// Whether kxjs_convert() keeps what `formula` means; nothing runs. `java_script` becomes what it
/// makes of it, `rewrite` the whole formula as it may be written for it, or empty where nothing is
/// known or to do, and `findings` gets the single changes. `findings` may be null.
///
///     kxjs_translator_check(translator, KXJS_LITERAL("IIF(B=2,'x','y')"), &verdict, NULL, rewrite,
///                           NULL);  // KXJS_VERDICT_CHANGED, "IIF(B==2,'x','y')"
/// @{
KXJS_C_API kxjs_status kxjs_translator_check(kxjs_translator* translator, char const* formula,
                                             size_t length, int32_t* verdict,
                                             kxjs_text* java_script, kxjs_text* rewrite,
                                             kxjs_findings* findings);
KXJS_C_API kxjs_status kxjs_translator_check_utf16(kxjs_translator* translator,
                                                   uint16_t const* formula, size_t length,
                                                   int32_t* verdict, kxjs_text* java_script,
                                                   kxjs_text* rewrite, kxjs_findings* findings);
/// @}

/// The script that makes translations run, for kxjs_host_evaluate(), once for each host. Any
/// thread.
KXJS_C_API kxjs_status kxjs_run_time_part(kxjs_text* java_script);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers,modernize-use-using)

#endif
