#pragma once

namespace kx {

class WorkerEnd;

/// What a worker program does; everything else about its processes is the same for each.
class WorkerService {
  public:
    virtual ~WorkerService() = default;

    /// What the program calls itself. The application compares it with its own version.
    virtual char const* version() const = 0;
    /// Runs once, in the zygote: what all workers can share. May start no thread.
    virtual void prepareZygote() {}
    /// Runs in each worker before its sandbox closes: opens and reads what is not to be reached
    /// afterwards. May start no thread.
    virtual void prepareWorker() {}
    /// Answers messages in the sandbox, for ever.
    virtual void serve(WorkerEnd& end) = 0;
    /// Runs on a thread of its own when the application asks to end what serve() is doing, again
    /// and again until that has answered.
    virtual void interrupt() {}
};

}  // namespace kx
