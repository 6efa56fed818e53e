#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kx {

/// A part of a text, in code units. `end` is the position after the last one.
struct Span {
    std::size_t start = 0;
    std::size_t end = 0;
    bool operator==(Span const&) const = default;
};

/// The part of the formula `typed` that conversion turned into `part` of `converted`; nothing where
/// that is not certain. Conversion keeps the order of words, but drops, repeats and inserts some.
std::optional<Span> typedPlace(std::u16string_view typed, std::u16string_view converted, Span part);

}  // namespace kx
