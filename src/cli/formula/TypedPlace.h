#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace kx {

/// A part of a text, in code units: `end` is the first one behind it.
struct Span {
    std::size_t start = 0;
    std::size_t end = 0;
    bool operator==(Span const&) const = default;
};

/// The part of the formula `typed` that became `part` of its JavaScript `converted`. Nothing where
/// that is not certain: conversion moves no words, but drops, repeats and inserts them.
std::optional<Span> typedPlace(std::u16string_view typed, std::u16string_view converted, Span part);

}  // namespace kx
