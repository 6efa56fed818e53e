#pragma once

#include <cstdint>
#include <sys/types.h>

namespace kx {

/// Lets `process`, a child, have `bytes` of private memory beyond what it has now. What it only
/// reserves does not count. The kernel holds it to that within single calls of the engine too.
/// Returns 0 or errno.
int limitMemory(pid_t process, std::uint64_t bytes);

}  // namespace kx
