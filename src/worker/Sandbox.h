#pragma once

#include "process/SandboxPieces.h"

namespace kx {

/// Gives up for ever, in this thread and those that it will start, what a formula has no use for.
/// The process may have no other thread. Returns the pieces that hold; where the kernel lacks one,
/// the others hold nevertheless:
///
/// - noNewPrivileges: no program that is run can gain any.
/// - noCapabilities: not even a worker of root has a privilege.
/// - landlock: no file can be opened, made or removed, no TCP port used.
/// - systemCallFilter: of some 400 system calls some thirty are left, with checked arguments; the
///   others fail with EPERM, and those of other architectures end the process.
///
/// `wakePipe` is the one descriptor that can still be written to.
SandboxPieces enterSandbox(int wakePipe);

/// The pieces, for enterSandbox() alone. Each returns whether it holds.
/// @{
bool dropCapabilities();
bool banFiles();
bool filterSystemCalls(int wakePipe);
/// @}

}  // namespace kx
