#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "convert/Matcher.h"
#include "convert/Workspace.h"

namespace kx {

/// Replaces a literal operator outside quotes. The scan is that of a position that walks through a
/// text rewritten in place:
///
/// - It stops before the place where the operator would fit for the last time, so an operator at
///   the very end of the text stays.
/// - A quote of either kind switches between quoted and not, unless a backslash stands before it;
///   one at the very start always opens.
/// - A replacement moves the position on by the length of the operator, and the ordinary step adds
///   one more: the unit after a replacement of equal length is never looked at.
///
/// In place each replacement would move the rest of the text. Here the rewritten text grows in a
/// second string, and places are those of the old text: the rest of the text is the same in both,
/// so the place where the operator fits for the last time is, too. Each unit is looked at and
/// copied once.
template <class Meter>
class OperatorReplacement {
  public:
    OperatorReplacement(Workspace& work, Meter& meter)
        : text(work.text), rewritten(work.rewritten), meter(meter) {}

    /// Returns the place of the first replacement, up to which the text is as it was, or `nowhere`.
    /// An empty operator stands nowhere.
    /// The cost is linear if the replacement is longer than the operator by one unit at most; a
    /// longer one is itself read again from there on.
    std::size_t apply(std::u16string_view op, std::u16string_view replacement);

  private:
    /// Whether a quote at this place of the text counts.
    bool switchesQuoting(std::size_t place) const {
        if (place > copied) return text[place - 1] != u'\\';
        return rewritten.empty() || rewritten.back() != u'\\';
    }

    void copyUpTo(std::size_t place) {
        rewritten.append(text, copied, place - copied);
        copied = place;
    }

    std::u16string& text;
    std::u16string& rewritten;
    Meter& meter;
    std::size_t copied = 0;  ///< the end of what stands in the rewritten text in some form
};

template <class Meter>
std::size_t OperatorReplacement<Meter>::apply(std::u16string_view op,
                                              std::u16string_view replacement) {
    meter.count(text.size());
    if (op.empty() || text.find(op) == std::u16string::npos) return nowhere;
    std::size_t first = nowhere;
    rewritten.clear();
    rewritten.reserve(text.capacity());
    char16_t const head = op[0];
    bool quoted = false;
    std::size_t end = text.size() - op.size();  // the last place where it fits
    for (std::size_t place = 0; place < end; ++place) {
        meter.count(1);
        char16_t const unit = text[place];
        if (unit != head && unit != u'"' && unit != u'\'') continue;
        if ((unit == u'"' || unit == u'\'') && switchesQuoting(place)) quoted = !quoted;
        if (quoted || text.compare(place, op.size(), op) != 0) continue;

        copyUpTo(place);
        if (first == nowhere) first = rewritten.size();
        std::size_t const passedOver = op.size() + 1;
        rewritten.append(replacement.substr(0, passedOver));
        copied = place + op.size();
        if (replacement.size() > passedOver) {
            text.replace(place, op.size(), replacement.substr(passedOver));
            end = text.size() < op.size() ? 0 : text.size() - op.size();
            copied = place--;
        } else {
            place = copied + (passedOver - replacement.size()) - 1;
        }
    }
    if (first == nowhere) return nowhere;
    copyUpTo(text.size());
    meter.count(text.size());
    text.swap(rewritten);
    return first;
}

}  // namespace kx
