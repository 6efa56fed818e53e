#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "library/Export.h"

namespace kx {
class BoundVariable;

/// What the language would convert to a value that is not meant: a pointer that is no text of this
/// library, such as char const*, to true, and a character to its code.
template <class T>
concept NoValue =
    (std::disjunction_v<std::is_pointer<T>, std::is_member_pointer<T>> &&
     !std::is_convertible_v<T, char16_t const*>) ||
    std::disjunction_v<std::is_same<T, char>, std::is_same<T, wchar_t>, std::is_same<T, char8_t>,
                       std::is_same<T, char16_t>, std::is_same<T, char32_t>>;
}  // namespace kx

/// A named value that an application gives to its scripts.
///
/// A variable has one field for each type and a tag that says which one is current. Reading never
/// converts: getLongValue() of a text variable is the number that was last stored, or 0.
///
///     KxJsVariable price(u"price", 12.5);
///     price.setValue(u"unknown");        // now a text; getDoubleValue() still gives 12.5
///     parser.addSetVariable(price);
///
/// A variable without a type, as the default constructor makes it, reads as true in scripts.
///
/// Errors: std::bad_alloc only. Threads: a plain value; one thread at a time.
class KXJS_API KxJsVariable {
  public:
    /// As much of a text, in UTF-16 code units, as scripts and valueToString() show.
    static constexpr std::size_t kMaxTextLength = 255;

    /// Which of its values a variable currently has.
    enum TypeOfVar : std::int32_t {
        TYPE_OF_VAR_UNDEFINED = 0,  ///< none was stored yet
        TYPE_OF_VAR_LONG = 1,       ///< a whole number of 32 bits
        TYPE_OF_VAR_DOUBLE = 2,     ///< a double
        TYPE_OF_VAR_STRING = 3,     ///< a text
        TYPE_OF_VAR_BOOLEAN = 4     ///< true or false
    };

    /// A variable with an empty key and no type.
    KxJsVariable();
    /// A variable of the given name and value, whose type becomes the current one. A text given by
    /// pointer ends at its first zero code unit; a null pointer counts as an empty text.
    /// @{
    KxJsVariable(std::u16string key, std::int32_t value);
    KxJsVariable(std::u16string key, double value);
    KxJsVariable(std::u16string key, char16_t const* value);
    KxJsVariable(std::u16string key, std::u16string const& value);
    KxJsVariable(std::u16string key, bool value);
    template <kx::NoValue T>
    KxJsVariable(std::u16string key, T value) = delete;
    /// @}
    /// Copies take over every field.
    /// @{
    KxJsVariable(KxJsVariable const& other);
    KxJsVariable& operator=(KxJsVariable const& other);
    /// @}
    ~KxJsVariable();

    TypeOfVar getType() const { return _mType; }     ///< the type of the current value
    std::u16string getKey() const { return _mKey; }  ///< the name that scripts use

    /// The value that was last stored for a type, whatever the current type is; 0, the empty text
    /// or true where there was none.
    /// @{
    std::int32_t getLongValue() const { return _mLongValue; }
    double getDoubleValue() const { return _mDoubleValue; }
    bool getBooleanValue() const { return _mBooleanValue; }
    std::u16string getStrValue() const { return _mStrValue; }

    operator std::int32_t() const { return _mLongValue; }
    operator double() const { return _mDoubleValue; }
    operator bool() const { return _mBooleanValue; }
    operator std::u16string() const { return _mStrValue; }
    /// @}

    /// Each stores into its own field and makes that field's type the current one. A text given by
    /// pointer is read as by the constructor.
    /// @{
    void setValue(std::int32_t value);
    void setValue(double value);
    void setValue(std::u16string value);
    void setValue(char16_t const* value);
    void setValue(bool value);
    template <kx::NoValue T>
    void setValue(T value) = delete;
    /// @}

    /// The current value as text of at most kMaxTextLength code units: a text is cut there and at
    /// its first zero, a double has exactly six decimals whatever the locale (and is the empty text
    /// where it would be longer than 255 code units), a variable without a type is "true".
    std::u16string valueToString() const;

  private:
    friend class KxJsParser;
    friend class kx::BoundVariable;

    std::u16string _mKey;
    std::int32_t _mLongValue = 0;
    double _mDoubleValue = 0.0;
    std::u16string _mStrValue;
    bool _mBooleanValue = true;
    TypeOfVar _mType = TYPE_OF_VAR_UNDEFINED;
};
