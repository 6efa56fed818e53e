/// @file
/// The built-in functions and their documentation.
#ifndef KXJS_CATALOGUE_H
#define KXJS_CATALOGUE_H

// Checks for C++ mean other declarations.
// NOLINTBEGIN(modernize-deprecated-headers,modernize-use-using)

#include "c/kxjs_base.h"
#include "c/kxjs_text.h"

#ifdef __cplusplus
extern "C" {
#endif

/// A list of records of functions, each with its JavaScript and what documentation says about it.
/// Use one on any thread, by one thread at a time.
typedef struct kxjs_functions kxjs_functions;

/// Which functions a new list has.
enum {
    KXJS_CATALOGUE_EMPTY = 0,       ///< none: for records of the application
    KXJS_CATALOGUE_MATH = 1,        ///< "mathematical functions", from ROUND to EXP
    KXJS_CATALOGUE_STRING = 2,      ///< "String functions", from LTRIM to LEN
    KXJS_CATALOGUE_MISC = 3,        ///< "miscellaneous functions", from IIF to LISTFUNCT
    KXJS_CATALOGUE_TRANSLATION = 4  ///< the functions of translated formulas
};

/// Makes a list with the functions of a catalogue; free it with kxjs_functions_free().
///
///     kxjs_functions_create(KXJS_CATALOGUE_MATH, &functions);
///     kxjs_functions_text(functions, 0, KXJS_FUNCTION_NAME, text);  // "ROUND"
KXJS_C_API kxjs_status kxjs_functions_create(int32_t catalogue, kxjs_functions** functions);

/// Frees a list. Null is allowed.
KXJS_C_API kxjs_status kxjs_functions_free(kxjs_functions* functions);

/// How many records the list has.
KXJS_C_API kxjs_status kxjs_functions_count(kxjs_functions* functions, size_t* count);

/// The texts of a record. Those from JAVASCRIPT on are made of the others.
enum {
    KXJS_FUNCTION_NAME = 0,
    KXJS_FUNCTION_DESCRIPTION = 1,         ///< HTML
    KXJS_FUNCTION_RETURN_DESCRIPTION = 2,  ///< HTML
    KXJS_FUNCTION_BODY = 3,                ///< JavaScript, without its braces
    KXJS_FUNCTION_CATEGORY = 4,            ///< the title of its catalogue
    KXJS_FUNCTION_JAVASCRIPT = 5,          ///< the declaration
    KXJS_FUNCTION_HTML = 6,                ///< a block of HTML without the examples
    KXJS_FUNCTION_HTML_EXAMPLES = 7,       ///< the same with the examples
    KXJS_FUNCTION_HTML_PAGE = 8            ///< a page of its own
};

/// A text of the record `index`; `which` is a KXJS_FUNCTION_ constant.
KXJS_C_API kxjs_status kxjs_functions_text(kxjs_functions* functions, size_t index, int32_t which,
                                           kxjs_text* text);

/// The names and descriptions of the parameters, and the examples (HTML). Each list may be null.
KXJS_C_API kxjs_status kxjs_functions_lists(kxjs_functions* functions, size_t index,
                                            kxjs_texts* parameters, kxjs_texts* descriptions,
                                            kxjs_texts* examples);

/// 1 in `is_complete` where the record has a name, both descriptions, a body and an example; only
/// complete records are documented.
KXJS_C_API kxjs_status kxjs_functions_is_complete(kxjs_functions* functions, size_t index,
                                                  int32_t* is_complete);

/// Appends an empty record, whose number comes back in `index`.
KXJS_C_API kxjs_status kxjs_functions_add(kxjs_functions* functions, size_t* index);

/// Sets a text of a record; `which` is KXJS_FUNCTION_CATEGORY or one before it. KXJS_REFUSED for an
/// empty text, a name with small letters or white space, a description with "{" and a body that
/// begins with one.
/// @{
KXJS_C_API kxjs_status kxjs_functions_set_text(kxjs_functions* functions, size_t index,
                                               int32_t which, char const* text, size_t length);
KXJS_C_API kxjs_status kxjs_functions_set_text_utf16(kxjs_functions* functions, size_t index,
                                                     int32_t which, uint16_t const* text,
                                                     size_t length);
/// @}

/// Appends a parameter to a record. KXJS_REFUSED for an empty name or description and for "{".
/// @{
KXJS_C_API kxjs_status kxjs_functions_add_parameter(kxjs_functions* functions, size_t index,
                                                    char const* name, size_t name_length,
                                                    char const* description,
                                                    size_t description_length);
KXJS_C_API kxjs_status kxjs_functions_add_parameter_utf16(kxjs_functions* functions, size_t index,
                                                          uint16_t const* name, size_t name_length,
                                                          uint16_t const* description,
                                                          size_t description_length);
/// @}

/// Appends an example to a record. KXJS_REFUSED for an empty text and for one with "{".
/// @{
KXJS_C_API kxjs_status kxjs_functions_add_example(kxjs_functions* functions, size_t index,
                                                  char const* example, size_t length);
KXJS_C_API kxjs_status kxjs_functions_add_example_utf16(kxjs_functions* functions, size_t index,
                                                        uint16_t const* example, size_t length);
/// @}

/// HTML documentation of all built-in functions as one document. `is_standalone` adds the
/// document's head and body tags, `with_examples` the examples. Any thread.
KXJS_C_API kxjs_status kxjs_documentation(int32_t is_standalone, int32_t with_examples,
                                          kxjs_text* html);

/// HTML documentation as one page for each function: its names and its pages, in catalogue order.
/// Each list may be null. Any thread.
KXJS_C_API kxjs_status kxjs_documentation_pages(kxjs_texts* names, kxjs_texts* pages);

/// The JavaScript statements that every context runs beside the built-in functions. Any thread.
KXJS_C_API kxjs_status kxjs_prelude(kxjs_texts* statements);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers,modernize-use-using)

#endif
