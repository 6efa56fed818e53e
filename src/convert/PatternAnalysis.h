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

/// Words of which every matched text contains at least one: for a pattern without loops the first
/// `maxLength` places of each of its alternatives, else one symbol that is in every match. Nothing
/// for a pattern that has neither.
std::vector<Word> necessaryWords(Pattern const& pattern, std::size_t maxLength);

/// The names that a pattern begins with, longest first, if it is one of a call: a name of symbols
/// other than "(" and white space, any white space, "(", and whatever follows.
std::optional<std::vector<std::string>> calledNames(Pattern const& pattern);

}  // namespace kx
