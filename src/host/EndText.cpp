#include "host/EndText.h"

#include "text/NumberText.h"

namespace kx {

std::u16string timeLimitText(std::chrono::milliseconds limit) {
    return u"The script was ended: it ran longer than its time limit of " +
           decimalText(limit.count()) + u" ms";
}

}  // namespace kx
