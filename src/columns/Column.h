#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "columns/TextResults.h"
#include "host/KxJsVariable.h"
#include "host/SeenText.h"
#include "native/Value.h"

namespace kx {

/// A named column in the application's memory.
struct Column {
    using Values = std::variant<double const*, std::int32_t const*, bool const*,
                                std::u16string const*, std::u16string_view const*>;
    std::u16string name;
    Values values;

    bool isText() const {
        return std::holds_alternative<std::u16string const*>(values) ||
               std::holds_alternative<std::u16string_view const*>(values);
    }

    KxJsVariable at(std::size_t record) const {
        return std::visit([&](auto const* first) { return variable(first[record]); }, values);
    }

    /// What scripts see of it.
    Value nativeValue(std::size_t record) const {
        return std::visit([&](auto const* first) { return seen(first[record]); }, values);
    }

    /// A variable of the column's type.
    KxJsVariable blank() const {
        return std::visit([&]<class T>(T const* /*first*/) { return variable(T()); }, values);
    }

    std::u16string_view text(std::size_t record) const {
        if (auto const* const* strings = std::get_if<std::u16string const*>(&values)) {
            return (*strings)[record];
        }
        return std::get<std::u16string_view const*>(values)[record];
    }

  private:
    static Value seen(double value) { return Value::of(value); }
    static Value seen(std::int32_t value) { return Value::of(static_cast<double>(value)); }
    static Value seen(bool value) { return Value::of(value); }
    static Value seen(std::u16string_view value) { return Value::of(seenText(value)); }

    template <class T>
    KxJsVariable variable(T const& value) const {
        if constexpr (std::is_same_v<T, std::u16string_view>) {
            return {name, std::u16string(value)};
        } else {
            return {name, value};
        }
    }
};

/// Where an evaluation puts its results; the type decides what the values become.
using ColumnResults = std::variant<TextResults, double*, bool*>;

}  // namespace kx
