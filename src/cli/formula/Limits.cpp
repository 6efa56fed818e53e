#include "cli/formula/Limits.h"

#include "host/KxJsParser.h"

namespace kx {

void setLimits(KxJsParser& parser, Limits const& limits) {
    parser.setTimeLimit(limits.time);
    if (limits.memory) parser.setMemoryLimit(*limits.memory);
}

}  // namespace kx
