#pragma once

#include <sys/types.h>

#include "worker/WorkerEnd.h"

namespace kx {

class WorkerService;

/// What a process does that the zygote has just forked: serves over the channel in `memory`, in the
/// sandbox. `wakePipe` wakes the application, and `zygote` is the parent with which it ends.
[[noreturn]] void runWorker(WorkerService& service, WorkerMemory memory, int wakePipe,
                            pid_t zygote);

}  // namespace kx
