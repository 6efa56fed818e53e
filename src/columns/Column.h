#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "host/KxJsVariable.h"

namespace kx {

/// A named column in the application's memory.
struct Column {
    using Values = std::variant<double const*, std::int32_t const*, bool const*,
                                std::u16string const*, std::u16string_view const*>;
    std::u16string name;
    Values values;

    bool isText() const { return values.index() >= 3; }

    KxJsVariable at(std::size_t record) const {
        return std::visit(
            [&](auto const* first) -> KxJsVariable {
                if constexpr (std::is_same_v<decltype(first), std::u16string_view const*>) {
                    return {name, std::u16string(first[record])};
                } else {
                    return {name, first[record]};
                }
            },
            values);
    }

    /// A variable of the column's type.
    KxJsVariable blank() const {
        switch (values.index()) {
            case 0:
                return {name, 0.0};
            case 1:
                return {name, std::int32_t{0}};
            case 2:
                return {name, false};
            default:
                return {name, std::u16string()};
        }
    }

    std::u16string_view text(std::size_t record) const {
        if (auto const* const* strings = std::get_if<std::u16string const*>(&values)) {
            return (*strings)[record];
        }
        return std::get<std::u16string_view const*>(values)[record];
    }
};

/// Where an evaluation puts its results; the type decides what the values become.
using ColumnResults = std::variant<std::u16string*, double*, bool*>;

}  // namespace kx
