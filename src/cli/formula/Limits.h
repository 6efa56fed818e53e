#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

class KxJsParser;

namespace kx {

/// What a formula may use before it is ended.
struct Limits {
    std::chrono::milliseconds time{0};  ///< 0: no limit
    std::optional<std::size_t> memory;  ///< bytes; none: the library's default
};

/// Sets both limits. The memory limit then holds for all hosts of the thread.
void setLimits(KxJsParser& parser, Limits const& limits);

}  // namespace kx
