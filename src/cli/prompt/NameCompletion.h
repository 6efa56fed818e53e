#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/formula/Catalogue.h"
#include "cli/prompt/LineEditor.h"
#include "host/KxJsVariable.h"

namespace kx {

/// Completes the word at the end of `beforeCursor`, the line up to the cursor, to the names of
/// the functions in `catalogues`, of `variables`, and of the prompt's commands.
Completion completeName(std::u16string const& beforeCursor,
                        std::map<std::u16string, KxJsVariable> const& variables,
                        std::vector<Catalogue> const& catalogues);

}  // namespace kx
