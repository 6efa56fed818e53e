#pragma once

#include <optional>
#include <string>
#include <vector>

#include "convert/Pattern.h"

/// What a pattern says about the texts that it can match, so that a text can be passed over
/// without matching.
namespace kx {

/// A sequence of symbol sets.
using Word = std::vector<SymbolSet>;

/// The first `maxLength` places of each alternative of a pattern without loops, less where the
/// alternative is shorter. Nothing for a pattern with loops.
std::vector<Word> firstPlaces(Pattern const& pattern, std::size_t maxLength);

/// Words of which every matched text contains at least one: those above, or for a pattern with
/// loops one symbol that is in every match. Nothing where there is none.
std::vector<Word> necessaryWords(Pattern const& pattern, std::size_t maxLength);

/// The names that a pattern begins with, longest first, if it is one of a call: a name of
/// letters, digits and underscores, any white space, "(", and whatever follows.
std::optional<std::vector<std::string>> calledNames(Pattern const& pattern);

}  // namespace kx
