#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "convert/Pattern.h"

/// What a pattern says about the texts that it can match. With it, most rules are passed over
/// without a search for matches.
namespace kx {

/// A sequence of symbol sets.
using Word = std::vector<SymbolSet>;

/// For each branch the items that it begins with, up to the first loop or optional item and up to
/// `maxLength`. For `\sOR\s|\d+x`: `\s` O R `\s`, and `\d`.
std::vector<Word> leadingWords(Pattern const& pattern, std::size_t maxLength);

/// Words of which every match holds at least one: for each branch its leading word, or, if the
/// branch has loops, one ASCII literal in it. Empty if a branch has neither.
std::vector<Word> necessaryWords(Pattern const& pattern, std::size_t maxLength);

/// The function names that a pattern of calls looks for, in capitals, the longest first. In a
/// pattern of calls every branch is a name, white space, "(", and anything behind:
/// for `(IF|IIF)\s*\(` the names are IIF and IF. Nothing for other patterns.
std::optional<std::vector<std::string>> calledNames(Pattern const& pattern);

}  // namespace kx
