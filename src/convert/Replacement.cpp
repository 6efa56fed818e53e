#include "convert/Replacement.h"

namespace kx {

Replacement::Replacement(std::u16string_view text) {
    parts.emplace_back();
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const isGroup =
            text[i] == u'$' && i + 1 < text.size() && text[i + 1] >= u'1' && text[i + 1] <= u'9';
        if (isGroup) {
            parts.back().group = static_cast<std::size_t>(text[++i] - u'0');
            parts.emplace_back();
            continue;
        }
        parts.back().literal += text[i];
    }
    if (parts.back().literal.empty()) parts.pop_back();
}

}  // namespace kx
