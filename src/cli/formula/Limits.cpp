#include "cli/formula/Limits.h"

#include <algorithm>
#include <cstdint>

namespace kx {

KxJsParser makeHost(Limits const& limits) {
    return limits.isIsolated ? KxJsParser(isolationFor(limits)) : KxJsParser();
}

KxJsIsolation isolationFor(Limits const& limits) {
    KxJsIsolation isolation;
    // The kernel's limit has to lie above the engine's, which ends a formula more gently.
    std::uint64_t const enough = std::uint64_t{limits.memory.value_or(0)} * 4;
    isolation.memoryLimit = std::max(isolation.memoryLimit, enough);
    return isolation;
}

void setLimits(KxJsParser& parser, Limits const& limits) {
    parser.setTimeLimit(limits.time);
    if (limits.memory) parser.setMemoryLimit(*limits.memory);
}

}  // namespace kx
