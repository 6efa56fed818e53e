#include "process/Deadline.h"

#include <cstdint>
#include <sys/eventfd.h>

#include "process/SystemError.h"

namespace kx {

Deadline::Deadline()
    : event_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), time_(kNever.time_since_epoch().count()) {
    if (!event_) throwSystemError("eventfd");
}

void Deadline::set(Clock::time_point time) { time_.store(time.time_since_epoch().count()); }

void Deadline::bringForward(Clock::time_point time) {
    Clock::rep const wanted = time.time_since_epoch().count();
    Clock::rep known = time_.load();
    while (wanted < known && !time_.compare_exchange_weak(known, wanted)) {
    }
    std::uint64_t const one = 1;
    [[maybe_unused]] ssize_t const written = write(event_.get(), &one, sizeof one);
}

bool Deadline::isOver() const { return time() != kNever && Clock::now() >= time(); }

void Deadline::clearDescriptor() {
    std::uint64_t count = 0;
    [[maybe_unused]] ssize_t const got = read(event_.get(), &count, sizeof count);
}

std::optional<timespec> Deadline::timeLeft() const {
    if (time() == kNever) return std::nullopt;
    auto const left = std::max(time() - Clock::now(), Clock::duration::zero());
    auto const seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    return timespec{static_cast<time_t>(seconds.count()),
                    static_cast<long>((left - seconds).count())};
}

Deadline::Clock::time_point Deadline::time() const {
    return Clock::time_point(Clock::duration(time_.load()));
}

}  // namespace kx
