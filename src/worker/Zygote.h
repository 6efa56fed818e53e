#pragma once

#include <csignal>
#include <cstdint>
#include <list>
#include <optional>
#include <sys/types.h>
#include <vector>

#include "process/OwnedDescriptor.h"
#include "process/SharedMemory.h"

namespace kx {

class WorkerService;

/// The process that workers are forked from. It never sees a formula. It has one thread, so that
/// workers can ask to end with it, and keeps one worker in reserve. It ends with the application.
class Zygote {
  public:
    explicit Zygote(WorkerService& service) : service_(service) {}

    /// Serves the application until that is gone. Returns the exit status.
    int run();

  private:
    /// A worker that the application has.
    struct Child {
        pid_t process;
        OwnedDescriptor control;
    };
    /// A worker that the application has not yet.
    struct Fresh {
        pid_t process;
        OwnedDescriptor memory;
        OwnedDescriptor wakePipe;
    };

    bool serveOnce();
    bool answerRequest();
    void makeSpare();
    Fresh takeWorker(std::uint64_t sharedBytes, std::vector<OwnedDescriptor> shared);
    Fresh makeWorker(SharedMemory const* shared);
    bool obeyControl(Child& child);
    void end(std::list<Child>::iterator child);
    void reap();

    WorkerService& service_;
    sigset_t waitMask_{};
    std::list<Child> children_;
    std::optional<Fresh> spare_;
};

}  // namespace kx
