#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "convert/Rule.h"

namespace kx {

/// Replaces a literal operator outside quotes. The scan is that of a position `i` that walks
/// through a text rewritten in place:
///
/// - Before each step it stops where the operator would fit for the last time, so an operator at
///   the very end of the text stays. (In a text shorter than the operator that place does not
///   exist; the scan then runs to the end and finds nothing.)
/// - A quote of either kind switches between quoted and not, unless a backslash stands before it;
///   one at the very start always opens.
/// - A replacement moves the position on by the length of the operator, and the ordinary step adds
///   one more: the unit after a replacement of equal length is never looked at.
///
/// In place each replacement would move the rest of the text. Here the part of the text up to the
/// position stands in `work.rewritten`, the rest is read from the old text, and units move over as
/// the position passes them. So each unit moves once, and the cost is linear.
template <class Meter>
class OperatorReplacement {
  public:
    OperatorReplacement(Workspace& work, Meter& meter)
        : text(work.text), front(work.rewritten), meter(meter) {}

    /// Returns the place of the first replacement, up to which the text is as it was, or `nowhere`.
    std::size_t apply(std::u16string_view op, std::u16string_view replacement);

  private:
    std::size_t size() const { return front.size() + text.size() - moved; }

    /// Makes the front hold at least `count` units, as far as there are.
    void moveUpTo(std::size_t count) {
        if (count <= front.size()) return;
        std::size_t const wanted = count - front.size();
        std::size_t const units = wanted < text.size() - moved ? wanted : text.size() - moved;
        front.append(text, moved, units);
        moved += units;
        meter.count(units);
    }

    std::u16string& text;
    std::u16string& front;
    std::size_t moved = 0;  ///< units of `text` that are in `front`
    Meter& meter;
};

template <class Meter>
std::size_t OperatorReplacement<Meter>::apply(std::u16string_view op,
                                              std::u16string_view replacement) {
    meter.count(text.size());
    if (text.empty() || text.find(op) == std::u16string::npos) return nowhere;
    front.clear();
    std::size_t first = nowhere;
    bool quoted = false;
    for (std::size_t i = 0; i < size() && size() - op.size() != i; ++i) {
        meter.count(1);
        moveUpTo(i + 1);
        char16_t const unit = front[i];
        if (unit == u'"' || unit == u'\'') {
            if (i == 0)
                quoted = true;
            else if (front[i - 1] != u'\\')
                quoted = !quoted;
        }
        if (quoted) continue;
        moveUpTo(i + op.size());
        if (front.compare(i, op.size(), op) != 0) continue;
        if (first == nowhere) first = i;
        front.replace(i, op.size(), replacement);
        i += op.size();
    }
    front.append(text, moved);
    meter.count(text.size() - moved);
    text.swap(front);
    return first;
}

}  // namespace kx
