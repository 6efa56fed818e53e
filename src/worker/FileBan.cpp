// Landlock: rights are named, and none is granted.
#include <cstdint>
#include <sys/syscall.h>
#include <unistd.h>

#include "worker/Sandbox.h"

namespace kx {

namespace {

/// The kernel's structure as it has grown. The headers of the system may be older than the kernel,
/// so what is newer than its first version is written out.
struct Ruleset {
    std::uint64_t files = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
};

constexpr long kRulesetSystemCall = 444;
constexpr long kRestrictSystemCall = 446;
constexpr unsigned kAskForVersion = 1;

constexpr std::uint64_t firstBits(int count) { return (std::uint64_t{1} << count) - 1; }

/// Everything that this version of Landlock can forbid.
Ruleset everything(long version) {
    Ruleset all;
    all.files = firstBits(version >= 5 ? 16 : version >= 3 ? 15 : version >= 2 ? 14 : 13);
    if (version >= 4) all.network = firstBits(2);
    if (version >= 6) all.scopes = firstBits(2);
    return all;
}

std::size_t sizeOfRuleset(long version) {
    std::size_t const words = version >= 6 ? 3 : version >= 4 ? 2 : 1;
    return words * sizeof(std::uint64_t);
}

}  // namespace

bool banFiles() {
    long const version = syscall(kRulesetSystemCall, nullptr, 0, kAskForVersion);
    if (version < 1) return false;
    Ruleset const all = everything(version);
    long const ruleset = syscall(kRulesetSystemCall, &all, sizeOfRuleset(version), 0);
    if (ruleset < 0) return false;
    bool const holds = syscall(kRestrictSystemCall, ruleset, 0) == 0;
    close(static_cast<int>(ruleset));
    return holds;
}

}  // namespace kx
