#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <sys/types.h>
#include <vector>

#include "process/ApplicationEnd.h"
#include "process/Deadline.h"
#include "process/OwnedDescriptor.h"
#include "process/SandboxPieces.h"
#include "process/SharedMemory.h"

namespace kx {

/// How workers are started.
struct WorkerSettings {
    std::string program;                         ///< path of the worker's program
    std::string version;                         ///< what it has to call itself
    std::uint64_t memoryLimit = 0;               ///< bytes beyond what a new worker has
    SandboxPieces requiredPieces = 0;            ///< without these, none is started
    SharedMemory const* sharedMemory = nullptr;  ///< of the application, which the worker gets too
};

/// A worker process, as the application sees it. It ends with this object.
///
/// Threads: one at a time; interrupt() and endBefore() at any time from any thread.
class Worker {
  public:
    using Outcome = ApplicationEnd::Outcome;

    /// Throws std::system_error or std::runtime_error where there can be none.
    explicit Worker(WorkerSettings const& settings);
    Worker(Worker const&) = delete;
    Worker& operator=(Worker const&) = delete;
    ~Worker();

    /// Begins a call, which has to be over at `end`. From now on it can be interrupted.
    void announce(Deadline::Clock::time_point end);
    /// Sends `request`, which is read no more after that. What fails shows in receive().
    void send(std::span<std::byte const> request);
    /// Waits for the `reply`. After any other outcome than `arrived` the worker is of no use:
    /// further calls have the same outcome.
    Outcome receive(std::vector<std::byte>& reply);
    /// Asks the worker to end what it does in the call that was announced last. It need not.
    void interrupt() { end_.interrupt(); }
    /// Brings the end of that call forward.
    void endBefore(Deadline::Clock::time_point time) { deadline_.bringForward(time); }

    /// Whether this process is another one than the worker was started by: a fork of it. Then the
    /// worker is of no use here.
    bool isOfOtherProcess() const;
    /// kChannelArea bytes that the worker sees too, and may change at any time.
    std::byte* area() const { return channelArea(memory_.data()); }
    SandboxPieces pieces() const { return pieces_; }
    /// The status that waitpid() gives for a worker that has ended; nothing where it is not known.
    std::optional<int> endStatus();

  private:
    struct Parts;
    Worker(Parts parts, WorkerSettings const& settings);

    static Parts takeFromZygote(WorkerSettings const& settings);
    void awaitReadiness(WorkerSettings const& settings);
    void limitMemory(std::uint64_t bytes);

    SharedMemory memory_;
    OwnedDescriptor control_;
    Deadline deadline_;
    ApplicationEnd end_;
    pid_t owner_;
    SandboxPieces pieces_ = 0;
    Outcome outcome_ = Outcome::arrived;
};

}  // namespace kx
