#pragma once

#include <atomic>
#include <cstdint>

#include <v8.h>

#include "engine/EndReason.h"

namespace kx {

/// Ends the run of one host, from any thread, and makes sure that it ends that run only.
///
/// V8's request to terminate is a flag of the isolate, which stays set until some script meets it.
/// So a request is only made during a run, the run does not end before the request is complete, and
/// the end clears the flag again. A run without a request costs two atomic operations.
class RunControl {
  public:
    /// The host's thread: a run begins. Runs of one host may nest. Returns whether this is the
    /// outermost, which is the one that counts.
    bool begin(v8::Isolate* isolate);

    /// The host's thread: the run has ended. Waits for a request that is just being made. Returns
    /// the reason of the request, if there was one; its termination may still be pending.
    EndReason end();

    /// Any thread: ends the run that is going on; without one, nothing happens. The first reason
    /// given stays, but every request is passed on.
    void requestEnd(EndReason reason);

    /// The host's thread, from the begin of a run to the next: the reason of a request that has
    /// been made.
    EndReason reason() const { return reason_.load(std::memory_order_acquire); }

  private:
    enum class State : std::uint8_t { idle, running, requesting, requested };

    std::atomic<State> state_ = State::idle;
    std::atomic<EndReason> reason_ = EndReason::none;
    v8::Isolate* isolate_ = nullptr;
    int depth_ = 0;
};

}  // namespace kx
