#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace kx {

/// A formula that is one expression without effects of its own: no assignment, no declaration, no
/// statement, no `this`, and only those methods that give the same result whenever they are called.
/// Where such an expression stands makes no difference, so it may become a function's body.
struct PureExpression {
    struct Name {
        std::u16string_view text;
        bool isCalled;  ///< stands before a parenthesis wherever it stands
    };

    std::u16string_view text;  ///< the source without a final semicolon
    std::vector<Name> names;   ///< every name that the scope has to resolve, once
};

/// Nothing where the look at `source`, token by token, finds anything that is not known to be
/// harmless. That `source` compiles as a script has to be found out elsewhere.
std::optional<PureExpression> pureExpression(std::u16string_view source);

}  // namespace kx
