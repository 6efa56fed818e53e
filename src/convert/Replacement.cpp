#include "convert/Replacement.h"

#include <algorithm>

namespace kx {

Replacement::Replacement(std::u16string_view text) {
    pieces_.emplace_back();
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const isGroup =
            text[i] == u'$' && i + 1 < text.size() && text[i + 1] >= u'1' && text[i + 1] <= u'9';
        if (isGroup) {
            pieces_.back().group = static_cast<std::size_t>(text[++i] - u'0');
            pieces_.emplace_back();
            continue;
        }
        pieces_.back().literal += text[i];
    }
    if (pieces_.back().literal.empty()) pieces_.pop_back();
}

void Replacement::findCalls(CallIndex const& index) {
    std::size_t uncounted = 0;
    for (Piece& piece : pieces_) index.collect(piece.literal, piece.calls, uncounted);
}

std::size_t Replacement::lastGroup() const {
    std::size_t last = 0;
    for (Piece const& piece : pieces_) last = std::max(last, piece.group);
    return last;
}

}  // namespace kx
