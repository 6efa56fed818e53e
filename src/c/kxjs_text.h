/// @file
/// Texts and lists of texts that the library fills.
#ifndef KXJS_TEXT_H
#define KXJS_TEXT_H

// Checks for C++ mean other declarations.
// NOLINTBEGIN(modernize-deprecated-headers,modernize-use-using)

#include "c/kxjs_base.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A text that calls fill. Empty at first. Use one on any thread, by one thread at a time.
typedef struct kxjs_text kxjs_text;

/// Makes an empty text; the application frees it with kxjs_text_free().
///
///     kxjs_text* error = NULL;
///     if (kxjs_text_create(&error) != KXJS_OK) return out_of_memory();
KXJS_C_API kxjs_status kxjs_text_create(kxjs_text** text);

/// Frees a text, and with it what its pointers lead to. Null is allowed.
KXJS_C_API kxjs_status kxjs_text_free(kxjs_text* text);

/// The text as UTF-8. `data` is never null and ends in a zero byte that `length` does not count; it
/// is the text's, and valid until a call fills or frees it. A lone surrogate, which UTF-8 cannot
/// express, becomes U+FFFD. `length` may be null.
///
///     char const* data = NULL;
///     size_t length = 0;
///     kxjs_text_utf8(error, &data, &length);
///     fprintf(stderr, "%.*s\n", (int)length, data);
KXJS_C_API kxjs_status kxjs_text_utf8(kxjs_text* text, char const** data, size_t* length);

/// The text as UTF-16, exactly as the library made it; otherwise as kxjs_text_utf8().
KXJS_C_API kxjs_status kxjs_text_utf16(kxjs_text* text, uint16_t const** data, size_t* length);

/// A list of texts: results that are several, and columns of texts. Empty at first. Use one on any
/// thread, by one thread at a time. A progress function gets KXJS_BUSY where it changes a list that
/// the evaluation reads, and where it uses one that the evaluation fills.
typedef struct kxjs_texts kxjs_texts;

/// Makes an empty list; the application frees it with kxjs_texts_free().
KXJS_C_API kxjs_status kxjs_texts_create(kxjs_texts** texts);

/// Frees a list, and with it what its pointers lead to. Null is allowed.
KXJS_C_API kxjs_status kxjs_texts_free(kxjs_texts* texts);

/// All texts of the list as UTF-8, one behind the other: text `i` is `data[offsets[i]]` up to, not
/// including, `data[offsets[i + 1]]`. There are `count` + 1 offsets. Both pointers are the list's,
/// never null, and valid until a call changes or frees it. Lone surrogates become U+FFFD.
///
///     kxjs_texts_utf8(names, &data, &offsets, &count);
///     for (size_t i = 0; i < count; ++i)
///         printf("%.*s\n", (int)(offsets[i + 1] - offsets[i]), data + offsets[i]);
KXJS_C_API kxjs_status kxjs_texts_utf8(kxjs_texts* texts, char const** data, size_t const** offsets,
                                       size_t* count);

/// The same as UTF-16, exactly as the library made them; offsets count code units.
KXJS_C_API kxjs_status kxjs_texts_utf16(kxjs_texts* texts, uint16_t const** data,
                                        size_t const** offsets, size_t* count);

/// All texts of the list as one text of UTF-16, with the unit `separator` between each two: for
/// languages that split a text faster than they cut it at offsets. KXJS_REFUSED where a text
/// contains `separator`. `data` is never null, and lives as kxjs_texts_utf16() says.
///
///     kxjs_texts_separated_utf16(names, 0, &data, &length);
KXJS_C_API kxjs_status kxjs_texts_separated_utf16(kxjs_texts* texts, uint16_t separator,
                                                  uint16_t const** data, size_t* length);

/// Replaces the list by `count` texts in the form that kxjs_texts_utf8() gives. Offsets begin
/// anywhere and never fall, or KXJS_BAD_ARGUMENT comes back. Everything is copied.
/// @{
KXJS_C_API kxjs_status kxjs_texts_set(kxjs_texts* texts, char const* data, size_t const* offsets,
                                      size_t count);
KXJS_C_API kxjs_status kxjs_texts_set_utf16(kxjs_texts* texts, uint16_t const* data,
                                            size_t const* offsets, size_t count);
/// @}

/// Appends one text, which is copied.
///
///     kxjs_texts_add(names, KXJS_LITERAL("Smith"));
/// @{
KXJS_C_API kxjs_status kxjs_texts_add(kxjs_texts* texts, char const* data, size_t length);
KXJS_C_API kxjs_status kxjs_texts_add_utf16(kxjs_texts* texts, uint16_t const* data, size_t length);
/// @}

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers,modernize-use-using)

#endif
