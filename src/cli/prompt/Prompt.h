#pragma once

#include "cli/formula/FormulaReader.h"
#include "cli/formula/Limits.h"
#include "cli/io/Errors.h"

namespace kx {

/// Evaluates lines at a prompt where standard input and output are a terminal, else the lines of
/// standard input. `limits` hold for each formula. Throws WorkError.
ExitStatus runPrompt(Limits const& limits, LanguageOptions const& language);

}  // namespace kx
