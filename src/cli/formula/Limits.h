#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

#include "host/KxJsParser.h"

namespace kx {

/// What a formula may use before it is ended, and where it runs.
struct Limits {
    std::chrono::milliseconds time{0};  ///< 0: no limit
    std::optional<std::size_t> memory;  ///< bytes; none: the library's default
    bool isIsolated = false;            ///< in a process of its own
};

/// A host that holds formulas to `limits`. In this process, the memory limit then holds for all
/// hosts of the thread. Throws std::runtime_error where there is no worker for an isolated one.
KxJsParser makeHost(Limits const& limits);

/// How an isolated host is made.
KxJsIsolation isolationFor(Limits const& limits);

/// Sets both limits.
void setLimits(KxJsParser& parser, Limits const& limits);

}  // namespace kx
