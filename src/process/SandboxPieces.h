#pragma once

#include <cstdint>

namespace kx {

/// The pieces of a worker's sandbox. What each does stands with enterSandbox().
enum class SandboxPiece : std::uint32_t {
    NO_NEW_PRIVILEGES = 1,
    NO_CAPABILITIES = 2,
    LANDLOCK = 4,
    SYSTEM_CALL_FILTER = 8
};

/// A set of pieces: the sum of their values.
using SandboxPieces = std::uint32_t;

}  // namespace kx
