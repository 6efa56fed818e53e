#pragma once

#include <csignal>

namespace kx {

/// Blocks all signals of this thread, and of those that it starts meanwhile.
class SignalsBlocked {
  public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    SignalsBlocked(SignalsBlocked const&) = delete;
    SignalsBlocked& operator=(SignalsBlocked const&) = delete;
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  private:
    sigset_t before_{};
};

}  // namespace kx
