#pragma once

#include <cstdint>
#include <limits>

#include "translate/Tree.h"

namespace kx::translate {

/// How many units a text has at least and at most.
struct TextLength {
    std::uint32_t least = 0;
    std::uint32_t most = 0xFFFFFFFF;
};
TextLength textLength(Tree const& tree, Node const& node);

/// What a number is at least and at most.
struct NumberRange {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    bool isWhole = false;
};
NumberRange numberRange(Tree const& tree, Node const& node);

/// Whether the installed function means the same for all values that the arguments of a call can
/// have. It does not for an empty text in ASC, codes beyond a byte in CHR, counts below 1 in RIGHT.
/// In OCCURS only a literal counts as an empty text: a variable rarely is one.
bool keepsArguments(Tree const& tree, Node const& call);

}  // namespace kx::translate
