#pragma once

#include <cstddef>
#include <sys/types.h>

namespace kx {

class WorkerService;

/// What a process does that the zygote has just forked: serves over the channel in `memory`, in the
/// sandbox. `bell` wakes the application, and `zygote` is the parent with which it ends.
[[noreturn]] void runWorker(WorkerService& service, std::byte* memory, int bell, pid_t zygote);

}  // namespace kx
