#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "expression/Parser.h"

namespace kx::translate {

/// JavaScript in which constructs that the parser of expressions refuses are replaced by ones that
/// it knows. The whole compiles where the original does; its meaning is lost.
struct Patches {
    std::u16string text;
    /// Whether a replaced construct has no counterpart in the older language: an array, a function,
    /// an increment.
    bool isOther = false;
    std::vector<std::u16string> labels = {};

    /// Replaces what was refused. False where it is no JavaScript.
    bool patch(Refusal const& refusal);
};

/// Whether it is a word of modern JavaScript that scripts may have as a name. It is replaced by the
/// same word in capitals.
bool isNameInScripts(std::u16string_view word);

}  // namespace kx::translate
