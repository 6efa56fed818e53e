#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/MemoryUse.h"

namespace kx {

/// Decides how much memory the next run may use, given what earlier ones have left in use.
///
/// What scripts keep in globals stays in use, so a run that filled the memory may leave it full.
/// The runs after it may use a little more than is in use then: the harmless among them need
/// little. A host whose scripts keep something each time would grow without end this way. So when
/// the allowance reaches a ceiling, near twice the limit, the memory counts as full, until
/// something was released and a collection finds less in use.
class MemoryPolicy {
  public:
    MemoryPolicy(MemoryUse const& use, std::size_t limit);

    std::size_t limit() const { return limit_; }

    /// What the run that is going on may use, or the next one.
    std::size_t allowance() const { return allowance_; }

    /// A limit that is set during a run holds from the next one on, except that it may raise what
    /// this one is allowed. What is in use already may stay.
    void setLimit(std::size_t bytes, bool isDuringRun);
    bool isLimitPending() const { return isLimitPending_; }

    /// A run has ended. Returns whether it leaves more in use than it was allowed.
    bool endRun();

    /// A run was ended because it used too much: collects what it has left.
    void collectAfterRun();

    /// Whether hosts that had a run ended for its memory may not run another. May collect garbage.
    bool isFull() { return fullness_ != Fullness::no && isStillFull(); }

    /// The application has released something that scripts may have kept alive.
    void somethingWasReleased() {
        if (fullness_ == Fullness::yes) fullness_ = Fullness::unknown;
    }

  private:
    enum class Fullness : std::uint8_t { no, yes, unknown };

    void applyLimit();
    void raiseAllowance();
    bool isStillFull();
    std::size_t slack() const;

    MemoryUse const& use_;
    std::size_t limit_;
    std::size_t allowance_;
    std::size_t ceiling_;  // of the allowance
    bool isLimitPending_ = false;
    Fullness fullness_ = Fullness::no;
};

}  // namespace kx
