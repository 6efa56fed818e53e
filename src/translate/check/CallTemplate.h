#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "expression/Expression.h"
#include "translate/Tree.h"

namespace kx::translate {

/// What the exact conversion makes of a function's calls.
struct CallTemplate {
    enum class Form : std::uint8_t {
        kept,     // a function of the same meaning
        differs,  // an installed function of another meaning
        unknown,  // left as it is, and not installed
        broken,   // cut, misspelt or no call any more
    };

    Form form = Form::broken;
    /// The converted call of placeholders; none where it is no expression.
    std::optional<Expression> expression;
};

/// The argument that a name in a template stands for; -1 for another name.
int placeholderOf(std::u16string_view name);

/// The template of a call, whose name is `name` as it is written. Each thread keeps those that it
/// has met, until it forgets them.
CallTemplate const& callTemplate(std::u16string_view name, Node const& call);

/// Forgets templates where there are very many.
void limitCallTemplates();

}  // namespace kx::translate
