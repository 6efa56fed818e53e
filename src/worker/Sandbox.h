#pragma once

#include "process/SandboxPieces.h"

namespace kx {

/// Gives up for ever, in this thread and those that it will start, what a formula has no use for.
/// The process may have no other thread. Returns the pieces that hold; where the kernel lacks one,
/// the others hold nevertheless:
///
/// - NO_NEW_PRIVILEGES: no program that is run can gain any.
/// - NO_CAPABILITIES: not even a worker of root has a privilege.
/// - LANDLOCK: no file can be opened, made or removed, no TCP port used.
/// - SYSTEM_CALL_FILTER: of some 400 system calls some thirty are left, with checked arguments; the
///   others fail with EPERM, and those of other architectures end the process.
///
/// `bell` is the one descriptor that can still be written to.
SandboxPieces enterSandbox(int bell);

/// The pieces, for enterSandbox() alone. Each returns whether it holds.
/// @{
bool dropCapabilities();
bool banFiles();
bool filterSystemCalls(int bell);
/// @}

}  // namespace kx
