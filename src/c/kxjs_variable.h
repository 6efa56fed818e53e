/// @file
/// Variables as objects of their own, for applications that keep some and set them again and again.
/// kxjs_host.h can set variables without them.
#ifndef KXJS_VARIABLE_H
#define KXJS_VARIABLE_H

// Checks for C++ mean other declarations.
// NOLINTBEGIN(modernize-deprecated-headers,modernize-use-using)

#include "c/kxjs_base.h"
#include "c/kxjs_text.h"

#ifdef __cplusplus
extern "C" {
#endif

/// The type of a variable's current value.
enum {
    KXJS_TYPE_UNDEFINED = 0,  ///< none was stored yet
    KXJS_TYPE_INT32 = 1,      ///< a whole number of 32 bits
    KXJS_TYPE_DOUBLE = 2,     ///< a double
    KXJS_TYPE_TEXT = 3,       ///< a text, of which scripts see the first 255 units
    KXJS_TYPE_BOOL = 4        ///< true or false
};

/// A named value. It has one field for each type, and a tag that says which one is current. Use one
/// on any thread, by one thread at a time.
///
///     kxjs_variable* price = NULL;
///     kxjs_variable_create(KXJS_LITERAL("PRICE"), &price);
///     kxjs_variable_set_double(price, 12.5);
///     kxjs_host_set_variable(host, price);
typedef struct kxjs_variable kxjs_variable;

/// Makes a variable of the name `key` without a value; free it with kxjs_variable_free(). Hosts
/// refuse it until it has one.
/// @{
KXJS_C_API kxjs_status kxjs_variable_create(char const* key, size_t key_length,
                                            kxjs_variable** variable);
KXJS_C_API kxjs_status kxjs_variable_create_utf16(uint16_t const* key, size_t key_length,
                                                  kxjs_variable** variable);
/// @}

/// Frees a variable; hosts have copies. Null is allowed.
KXJS_C_API kxjs_status kxjs_variable_free(kxjs_variable* variable);

/// Each stores into its own field and makes that field's type the current one. `value` of
/// kxjs_variable_set_bool() is true where it is not 0.
/// @{
KXJS_C_API kxjs_status kxjs_variable_set_int32(kxjs_variable* variable, int32_t value);
KXJS_C_API kxjs_status kxjs_variable_set_double(kxjs_variable* variable, double value);
KXJS_C_API kxjs_status kxjs_variable_set_bool(kxjs_variable* variable, int32_t value);
KXJS_C_API kxjs_status kxjs_variable_set_text(kxjs_variable* variable, char const* value,
                                              size_t value_length);
KXJS_C_API kxjs_status kxjs_variable_set_text_utf16(kxjs_variable* variable, uint16_t const* value,
                                                    size_t value_length);
/// @}

/// The type of the current value: a KXJS_TYPE_ constant.
KXJS_C_API kxjs_status kxjs_variable_type(kxjs_variable* variable, int32_t* type);

/// The value that was last stored for a type, whatever the current type is; 0, 1 (for true) or the
/// empty text where there was none. Nothing is converted.
/// @{
KXJS_C_API kxjs_status kxjs_variable_int32(kxjs_variable* variable, int32_t* value);
KXJS_C_API kxjs_status kxjs_variable_double(kxjs_variable* variable, double* value);
KXJS_C_API kxjs_status kxjs_variable_bool(kxjs_variable* variable, int32_t* value);
KXJS_C_API kxjs_status kxjs_variable_text(kxjs_variable* variable, kxjs_text* value);
/// @}

/// The name that scripts use.
KXJS_C_API kxjs_status kxjs_variable_key(kxjs_variable* variable, kxjs_text* key);

/// The current value as text of at most 255 code units: a double has exactly six decimals, a text
/// ends at its first zero unit, a variable without a value is "true".
KXJS_C_API kxjs_status kxjs_variable_to_text(kxjs_variable* variable, kxjs_text* text);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-deprecated-headers,modernize-use-using)

#endif
