#pragma once

#include <string>

#include "translate/Tree.h"

namespace kx::translate {

/// Ends the parsing of a formula that is none: where, and what was expected there.
struct SyntaxError {
    Place place;
    std::u16string text;
};

}  // namespace kx::translate
