#include "convert/Replacement.h"

namespace kx {

Replacement::Replacement(std::u16string_view text) {
    std::u16string literal;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const isGroup =
            text[i] == u'$' && i + 1 < text.size() && text[i + 1] >= u'1' && text[i + 1] <= u'9';
        if (!isGroup) {
            literal += text[i];
            continue;
        }
        pieces.push_back({literal, static_cast<std::size_t>(text[++i] - u'0')});
        literal.clear();
    }
    if (!literal.empty()) pieces.push_back({literal, 0});
}

}  // namespace kx
