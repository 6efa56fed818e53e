#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/KxJsIsolation.h"
#include "process/SharedMemory.h"
#include "process/Worker.h"

namespace kx {

/// The worker of an isolated host: held to its time, and replaced once it has ended.
class SupervisedWorker {
  public:
    /// How a call ended.
    enum class Ending : std::uint8_t {
        answered,
        timeLimit,   ///< the worker ran on after the limit and the grace
        terminated,  ///< the same, after terminate()
        crashed,     ///< the worker ended by itself
        invalid      ///< the worker broke the protocol
    };

    /// Throws std::system_error or std::runtime_error where there can be no worker.
    explicit SupervisedWorker(KxJsIsolation const& isolation);

    /// Whether there is a worker that can be called.
    bool isThere() const { return worker_ != nullptr && !worker_->isOfOtherProcess(); }
    /// Starts one in place of one that is not there any more. Throws as the constructor.
    void start();

    /// Begins a call: sends `request`. `limit` is the time that the worker may take by itself; 0 is
    /// none. A call that was begun has to be ended, or the worker given up.
    void beginCall(std::span<std::byte const> request, std::chrono::milliseconds limit);
    /// Waits for the `reply`. After any other ending than `answered` the worker is not there any
    /// more.
    Ending endCall(std::vector<std::byte>& reply);
    /// Whether a call was begun and not ended. For the thread that calls.
    bool isCalling() const { return isCalling_; }
    /// Ends the worker, of which a reply has turned out to be invalid.
    void giveUp();
    /// Ends the call that is going on, if any: softly, or after the grace. Any thread.
    void terminate();

    /// Memory that each worker gets, for the life of this object.
    std::span<std::byte> sharedMemory() const {
        return sharedMemory_ ? std::span(sharedMemory_->data(), sharedMemory_->size())
                             : std::span<std::byte>();
    }
    /// See Worker::area(); for the worker that is there.
    std::byte* area() const { return worker_->area(); }

    /// How the last worker that crashed has ended, such as "signal 11"; empty where not known.
    std::u16string const& lastEnd() const { return lastEnd_; }
    KxJsSandbox const& sandbox() const { return sandbox_; }

  private:
    KxJsIsolation isolation_;
    std::optional<SharedMemory> sharedMemory_;
    WorkerSettings settings_;
    KxJsSandbox sandbox_;
    std::u16string lastEnd_;

    std::mutex mutex_;  // of what terminate() uses on other threads
    std::unique_ptr<Worker> worker_;
    bool isCalling_ = false;  // written by the calling thread alone
    bool isTerminated_ = false;
};

}  // namespace kx
