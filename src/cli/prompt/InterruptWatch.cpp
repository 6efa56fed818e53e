#include "cli/prompt/InterruptWatch.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <poll.h>
#include <string>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

#include "cli/io/Errors.h"

namespace kx {
namespace {

constexpr int kLastInterrupt = 3;
constexpr int kStatusOfInterrupt = 128 + SIGINT;

sigset_t interrupts() {
    sigset_t set;
    ::sigemptyset(&set);
    ::sigaddset(&set, SIGINT);
    return set;
}

}  // namespace

InterruptWatch::InterruptWatch() {
    sigset_t const set = interrupts();
    ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
    signals_ = ::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    end_ = ::eventfd(0, EFD_CLOEXEC);
    if (signals_ < 0 || end_ < 0) {
        throw WorkError("cannot watch for interrupts: " + std::generic_category().message(errno));
    }
}

InterruptWatch::~InterruptWatch() {
    if (thread_.joinable()) {
        std::uint64_t const one = 1;
        [[maybe_unused]] ssize_t const written = ::write(end_, &one, sizeof one);
        thread_.join();
    }
    ::close(signals_);
    ::close(end_);
}

void InterruptWatch::watch(KxJsParser& parser) {
    thread_ = std::thread([this, &parser] { wait(parser); });
}

void InterruptWatch::wait(KxJsParser& parser) {
    for (;;) {
        std::array<pollfd, 2> watched{{{signals_, POLLIN, 0}, {end_, POLLIN, 0}}};
        if (::poll(watched.data(), watched.size(), -1) < 0 && errno != EINTR) return;
        if (watched[1].revents != 0) return;
        signalfd_siginfo signal;
        if (::read(signals_, &signal, sizeof signal) != sizeof signal) continue;
        if (++interrupts_ >= kLastInterrupt) ::_exit(kStatusOfInterrupt);
        parser.terminate();
    }
}

}  // namespace kx
