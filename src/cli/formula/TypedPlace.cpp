#include "cli/formula/TypedPlace.h"

#include <algorithm>
#include <vector>

#include "text/NameUnits.h"
#include "text/WhiteSpace.h"

namespace kx {
namespace {

bool isQuote(char16_t unit) { return unit == u'\'' || unit == u'"'; }

std::size_t tokenEnd(std::u16string_view text, std::size_t start) {
    std::size_t end = start + 1;
    if (isQuote(text[start])) return std::min(text.find(text[start], end), text.size() - 1) + 1;
    if (!mayBeNamePart(text[start])) return end;
    while (end < text.size() && mayBeNamePart(text[end])) ++end;
    return end;
}

/// The tokens of a formula, in order: words, quoted texts and single other characters.
class Tokens {
  public:
    explicit Tokens(std::u16string_view text) : text_(text) {
        for (std::size_t at = 0; at < text.size();) {
            if (isWhiteSpace(text[at])) {
                ++at;
                continue;
            }
            spans_.push_back({at, tokenEnd(text, at)});
            at = spans_.back().end;
        }
    }

    std::size_t count() const { return spans_.size(); }
    Span at(std::size_t index) const { return spans_[index]; }
    std::u16string_view text(std::size_t index) const {
        return text_.substr(spans_[index].start, spans_[index].end - spans_[index].start);
    }

    std::optional<std::size_t> indexAt(std::size_t position) const {
        for (std::size_t i = 0; i < count(); ++i) {
            if (position >= spans_[i].start && position < spans_[i].end) return i;
        }
        return std::nullopt;
    }

    std::size_t end() const { return spans_.empty() ? 0 : spans_.back().end; }

  private:
    std::u16string_view text_;
    std::vector<Span> spans_;
};

/// The index of the token in `typed` that became the token `index` of `converted`. There is one
/// where both texts are the same from their beginnings up to the token, or from the token to their
/// ends, or where the token is a word or a quoted text that occurs equally often in both.
std::optional<std::size_t> partnerOf(Tokens const& typed, Tokens const& converted,
                                     std::size_t index) {
    std::u16string_view const wanted = converted.text(index);
    std::size_t same = 0;
    while (same < typed.count() && same <= index && typed.text(same) == converted.text(same)) {
        ++same;
    }
    if (same > index) return index;

    std::size_t const behind = converted.count() - index;
    same = 0;
    while (same < typed.count() && same < behind &&
           typed.text(typed.count() - 1 - same) == converted.text(converted.count() - 1 - same)) {
        ++same;
    }
    if (same == behind) return typed.count() - behind;

    if (!mayBeNamePart(wanted.front()) && !isQuote(wanted.front())) return std::nullopt;
    std::size_t before = 0;
    std::size_t inConverted = 0;
    for (std::size_t i = 0; i < converted.count(); ++i) {
        if (converted.text(i) != wanted) continue;
        ++inConverted;
        if (i < index) ++before;
    }
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < typed.count(); ++i) {
        if (typed.text(i) == wanted) places.push_back(i);
    }
    if (places.size() != inConverted) return std::nullopt;
    return places[before];
}

}  // namespace

std::optional<Span> typedPlace(std::u16string_view typed, std::u16string_view converted,
                               Span part) {
    if (typed == converted) return part;
    Tokens const from(converted);
    Tokens const to(typed);
    if (part.start >= from.end()) return Span{to.end(), to.end()};
    auto const index = from.indexAt(part.start);
    if (!index) return std::nullopt;
    auto const partner = partnerOf(to, from, *index);
    if (!partner) return std::nullopt;
    // Only the first token is marked: the next tokens may differ.
    std::size_t const end = std::min(part.end, from.at(*index).end);
    std::size_t const start = to.at(*partner).start + part.start - from.at(*index).start;
    return Span{start, start + end - part.start};
}

}  // namespace kx
