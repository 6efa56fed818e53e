#pragma once

#include <csignal>
#include <list>
#include <optional>
#include <sys/types.h>

#include "process/OwnedDescriptor.h"

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
        OwnedDescriptor leash;
    };
    /// The worker in reserve.
    struct Spare {
        pid_t process;
        OwnedDescriptor memory;
        OwnedDescriptor bell;
    };

    bool serveOnce();
    bool answerRequest();
    void makeSpare();
    bool obeyLeash(Child& child);
    void end(std::list<Child>::iterator child);
    void reap();

    WorkerService& service_;
    sigset_t waitMask_{};
    std::list<Child> children_;
    std::optional<Spare> spare_;
    int spareError_ = 0;
};

}  // namespace kx
