#pragma once

#include <string>
#include <string_view>

#include "translate/Settings.h"
#include "translate/Tree.h"

namespace kx::translate {

/// The JavaScript of a tree without untranslatable parts: one expression.
std::u16string emit(Tree const& tree, std::u16string_view source, Settings const& settings);

/// Where `settings` has the variable of a name node, its key there; else the name in upper case.
std::u16string_view variableKey(Tree const& tree, Node const& name, Settings const& settings);

}  // namespace kx::translate
