#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>

namespace kx {

/// A value of a formula. A text is not owned: it lies in the formula, in a variable, or in the
/// TextArena of the evaluation.
struct Value {
    enum class Type : std::uint8_t { undefined, null, boolean, number, text };

    Type type = Type::undefined;
    double number = 0;  // of a truth value 0 or 1
    std::u16string_view text = {};

    constexpr Value() = default;
    constexpr Value(Type type, double number = 0, std::u16string_view text = {})
        : type(type), number(number), text(text) {}
    constexpr Value(Value const&) = default;
    ~Value() = default;
    // Part by part: to read a whole value that was written in parts just before, the processor
    // waits until they are all in the cache.
    constexpr Value& operator=(Value const& other) {
        type = other.type;
        number = other.number;
        if (other.type == Type::text) text = other.text;
        return *this;
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
};

}  // namespace kx
