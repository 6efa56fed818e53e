#include "engine/RunControl.h"

#include <thread>

namespace kx {

bool RunControl::begin(v8::Isolate* isolate) {
    if (depth_++ > 0) return false;
    isolate_ = isolate;
    reason_.store(EndReason::none, std::memory_order_relaxed);
    state_.store(State::running, std::memory_order_release);
    return true;
}

EndReason RunControl::end() {
    if (--depth_ > 0) return EndReason::none;
    State expected = State::running;
    if (state_.compare_exchange_strong(expected, State::idle)) return EndReason::none;
    // Exchanged, not stored: a second request may begin at any moment before.
    for (;;) {
        expected = State::requested;
        if (state_.compare_exchange_strong(expected, State::idle)) return reason();
        std::this_thread::yield();
    }
}

void RunControl::requestEnd(EndReason reason) {
    State expected = State::running;
    if (state_.compare_exchange_strong(expected, State::requesting)) {
        reason_.store(reason, std::memory_order_release);
    } else {
        // Requested before, and still running: V8 has met the first request, and goes on with
        // something else that the script has left, such as promise jobs.
        expected = State::requested;
        if (!state_.compare_exchange_strong(expected, State::requesting)) return;
    }
    isolate_->TerminateExecution();
    state_.store(State::requested, std::memory_order_release);
}

}  // namespace kx
