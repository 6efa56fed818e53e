#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "expression/Parser.h"

namespace kx::translate {

/// JavaScript in which what the parser of expressions refuses has been replaced by something that
/// it knows. That keeps whether the whole compiles, not what it means.
struct Patches {
    std::u16string text;
    /// Whether something was replaced that no formula means: an array, a function, an increment.
    bool isOther = false;
    std::vector<std::u16string> labels = {};

    /// Replaces what was refused. False where it is no JavaScript.
    bool patch(Refusal const& refusal);
};

/// Whether it is a word of modern JavaScript that scripts may have as a name. It is replaced by the
/// same word in capitals.
bool isNameInScripts(std::u16string_view word);

}  // namespace kx::translate
