#pragma once

#include <cstdint>
#include <cstdlib>

/// How much a test compares: more than usual where the environment asks for it, in a search for
/// differences.
inline std::uint64_t searchSize(char const* name, std::uint64_t usual) {
    char const* const text = std::getenv(name);
    return text == nullptr ? usual : std::strtoull(text, nullptr, 10);
}
