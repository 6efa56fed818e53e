#pragma once

#include <cstdint>

namespace kx {

/// The pieces of a worker's sandbox. What each does stands with enterSandbox().
enum class SandboxPiece : std::uint32_t {
    noNewPrivileges = 1,
    noCapabilities = 2,
    landlock = 4,
    systemCallFilter = 8
};

/// A set of pieces: the sum of their values.
using SandboxPieces = std::uint32_t;

}  // namespace kx
