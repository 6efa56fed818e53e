#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kx {

/// A value of a formula. A text is not owned: it lies in the formula, in a variable, or in the
/// TextArena of the evaluation.
struct Value {
    enum class Type : std::uint8_t { undefined, null, boolean, number, text };

    Type type = Type::undefined;

  private:
    // Apart from the length: the processor would wait where both are copied at once that were
    // written one by one just before.
    char16_t const* units_ = nullptr;

  public:
    double number = 0;  // of a truth value 0 or 1

    constexpr Value() = default;
    constexpr Value(Type type, double number = 0, std::u16string_view text = {})
        : type(type), units_(text.data()), number(number), length_(text.size()) {}
    constexpr Value(Value const&) = default;
    ~Value() = default;
    // Part by part, for the same reason.
    constexpr Value& operator=(Value const& other) {
        type = other.type;
        number = other.number;
        if (other.type == Type::text && &other != this) setText(other.text());
        return *this;
    }

    constexpr std::u16string_view text() const { return {units_, length_}; }
    constexpr void become(std::u16string_view text) {
        type = Type::text;
        setText(text);
    }

    static Value of(double number) { return {Type::number, number}; }
    // Only of truth values: pointers would become some.
    static Value of(std::same_as<bool> auto value) { return {Type::boolean, value ? 1.0 : 0.0}; }
    static Value of(std::u16string_view text) { return {Type::text, 0, text}; }

    bool isNumber() const { return type == Type::number; }
    bool isBoolean() const { return type == Type::boolean; }
    bool isText() const { return type == Type::text; }
    bool isUndefined() const { return type == Type::undefined; }
    bool isNullish() const { return type == Type::undefined || type == Type::null; }

  private:
    constexpr void setText(std::u16string_view text) {
        units_ = text.data();
        length_ = text.size();
    }

    std::size_t length_ = 0;
};

}  // namespace kx
