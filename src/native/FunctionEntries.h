#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "native/Functions.h"

namespace kx {

/// The entry of that name in a table that is in the order of names, or null.
template <class Table>
auto const* findByName(Table const& table, std::u16string_view name) {
    auto const found = std::lower_bound(
        table.begin(), table.end(), name,
        [](auto const& entry, std::u16string_view sought) { return entry.name < sought; });
    return found != table.end() && found->name == name ? &*found : nullptr;
}

template <class Entry, std::size_t kSize>
constexpr bool isInOrder(std::array<Entry, kSize> const& table) {
    return std::is_sorted(table.begin(), table.end(),
                          [](Entry const& a, Entry const& b) { return a.name < b.name; });
}

template <class Result>
bool setResult(Result const& value, Value& result) {
    result = Value::of(value);
    return true;
}

/// False where there is no value.
template <class Result>
bool setResult(std::optional<Result> const& value, Value& result) {
    return value && setResult(*value, result);
}

}  // namespace kx
