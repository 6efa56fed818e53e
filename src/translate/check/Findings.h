#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "translate/Parser.h"
#include "translate/Settings.h"
#include "translate/Tree.h"
#include "translate/check/Codes.h"

namespace kx::translate {

struct Found {
    Code code;
    NodeIndex node;
    Place place;
    std::u16string_view name = {};  // of the code, where it is "untranslatable"
};

/// What the exact conversion will do to a formula, as far as the formula alone tells.
std::vector<Found> findDamage(Tree const& tree, std::u16string_view source,
                              Settings const& settings,
                              std::vector<Untranslatable> const& obstacles);

/// Whether texts are compared by a part of them only, so that JavaScript's comparison differs.
bool isPartialComparison(Tree const& tree, Node const& node);

}  // namespace kx::translate
