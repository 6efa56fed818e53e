#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// A formula that is one expression without effects of its own: no assignment, no declaration, no
/// statement, no `this`, and only those methods that give the same result whenever they are called.
/// Where such an expression stands makes no difference, so it may become a function's body.
struct PureExpression {
    struct Name {
        std::u16string text;
        bool isCalled;  ///< is called wherever it stands
    };

    std::u16string text;       ///< the expression without what stands around it
    std::vector<Name> names;   ///< every name that the scope has to resolve, once
    bool usesMembers = false;  ///< calls methods, or functions that call some
};

/// Nothing where anything in `source` is not known to be harmless.
std::optional<PureExpression> pureExpression(std::u16string_view source);

}  // namespace kx
