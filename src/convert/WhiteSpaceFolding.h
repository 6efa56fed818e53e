#pragma once

#include <cstddef>
#include <string>

#include "text/WhiteSpace.h"

namespace kx {

/// Replaces every run of white space by one blank, also at the start and the end of the text. This
/// is the last rule of the conversion: `\s+` replaced by " ".
inline void foldWhiteSpace(std::u16string& text) {
    char16_t* end = text.data();
    bool wasSpace = false;
    for (char16_t const unit : text) {
        bool const isSpace = isWhiteSpace(unit);
        if (!isSpace || !wasSpace) *end++ = isSpace ? u' ' : unit;
        wasSpace = isSpace;
    }
    text.resize(static_cast<std::size_t>(end - text.data()));
}

}  // namespace kx
