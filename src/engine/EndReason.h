#pragma once

#include <cstdint>

namespace kx {

/// Why a run was ended before its script was.
enum class EndReason : std::uint8_t {
    none,
    timeLimit,
    memoryLimit,
    terminated,
    workerEnded  ///< of an isolated host: its worker process ended
};

}  // namespace kx
