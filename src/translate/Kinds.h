#pragma once

#include <string_view>

#include "translate/Tree.h"

namespace kx::translate {

/// Fills in the kind of a node's value and its scale, from those of its children.
void inferKind(Tree const& tree, Node& node);

/// The name of a kind in error texts.
std::u16string_view kindName(Kind kind);

}  // namespace kx::translate
