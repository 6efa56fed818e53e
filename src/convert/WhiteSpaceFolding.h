#pragma once

#include <cstddef>
#include <string>

#include "text/WhiteSpace.h"

namespace kx {

/// Replaces every run of white space by one blank, at the start and end of the text too: what the
/// rule `\s+` replaced by " " would do.
template <class Meter>
void foldWhiteSpace(std::u16string& text, Meter& meter) {
    meter.count(text.size());
    std::size_t end = 0;
    bool inRun = false;
    for (char16_t const unit : text) {
        if (!isWhiteSpace(unit)) {
            text[end++] = unit;
            inRun = false;
        } else if (!inRun) {
            text[end++] = u' ';
            inRun = true;
        }
    }
    text.resize(end);
}

}  // namespace kx
