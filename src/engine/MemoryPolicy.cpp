#include "engine/MemoryPolicy.h"

#include <algorithm>

namespace kx {

namespace {

/// What a run may use at least, however much is in use.
constexpr std::size_t kLeastSlack = std::size_t{16} << 20;

/// The least distance from limit to ceiling: the scripts after one that was ended may be harmless.
constexpr std::size_t kLeastRoom = 8 * kLeastSlack;

std::size_t roomAbove(std::size_t limit) { return std::max(limit, kLeastRoom); }

}  // namespace

MemoryPolicy::MemoryPolicy(MemoryUse const& use, std::size_t limit)
    : use_(use), limit_(limit), allowance_(limit), ceiling_(limit + roomAbove(limit)) {}

void MemoryPolicy::setLimit(std::size_t bytes, bool isDuringRun) {
    limit_ = bytes;
    fullness_ = Fullness::no;
    ceiling_ = bytes + roomAbove(bytes);
    allowance_ = std::max(allowance_, bytes);
    isLimitPending_ = isDuringRun;
    if (!isDuringRun) applyLimit();
}

void MemoryPolicy::applyLimit() {
    isLimitPending_ = false;
    fullness_ = Fullness::no;
    ceiling_ = limit_ + roomAbove(limit_);
    allowance_ = limit_;
    if (use_.bytes() <= limit_) return;
    // Otherwise the next run, which may need nothing, would be ended for what others have left.
    use_.collectAll();
    ceiling_ = std::max(limit_, use_.bytes()) + roomAbove(limit_);
    allowance_ = std::max(limit_, use_.bytes() + slack());
}

bool MemoryPolicy::endRun() {
    if (isLimitPending_) applyLimit();
    if (use_.bytes() <= allowance_) return false;
    use_.collectAll();
    if (use_.bytes() <= allowance_) return false;
    raiseAllowance();
    return true;
}

void MemoryPolicy::collectAfterRun() {
    use_.collectAll();
    raiseAllowance();
}

void MemoryPolicy::raiseAllowance() {
    allowance_ = std::max(limit_, use_.bytes() + slack());
    fullness_ = allowance_ > ceiling_ ? Fullness::yes : Fullness::no;
}

bool MemoryPolicy::isStillFull() {
    // In an isolate of the application, it may have released something without the library.
    if (fullness_ == Fullness::unknown || !use_.isComplete()) collectAfterRun();
    return fullness_ == Fullness::yes;
}

std::size_t MemoryPolicy::slack() const { return std::max(kLeastSlack, limit_ / 8); }

}  // namespace kx
