#include "convert/OperatorReplacement.h"

namespace kx {

std::size_t OperatorReplacement::apply(std::u16string_view op, std::u16string_view replacement) {
    std::u16string& text = work_.text;
    std::u16string& rewritten = work_.rewritten;
    work_.steps += text.size();
    if (op.empty() || text.find(op) == std::u16string::npos) return kNowhere;
    rewritten.clear();
    rewritten.reserve(text.capacity());
    std::size_t const skipped = op.size() + 1;  // from where an operator was replaced
    std::size_t first = kNowhere;
    bool isQuoted = false;
    std::size_t steps = 0;
    std::size_t end = text.size() - op.size();  // the last position where it fits
    for (std::size_t position = 0; position < end; ++position) {
        ++steps;
        char16_t const unit = text[position];
        bool const isQuote = unit == u'"' || unit == u'\'';
        if (isQuote && !isEscaped(position)) isQuoted = !isQuoted;
        if (isQuoted || unit != op[0] || text.compare(position, op.size(), op) != 0) continue;

        copyUpTo(position);
        if (first == kNowhere) first = rewritten.size();
        rewritten.append(replacement.substr(0, skipped));
        copied_ = position + op.size();
        if (replacement.size() > skipped) {
            // The scan goes on in the replacement: let the text hold its end.
            text.replace(position, op.size(), replacement.substr(skipped));
            end = text.size() < op.size() ? 0 : text.size() - op.size();
            copied_ = position--;
        } else {
            position = copied_ + (skipped - replacement.size()) - 1;
        }
    }
    work_.steps += steps;
    if (first == kNowhere) return kNowhere;
    copyUpTo(text.size());
    work_.steps += text.size();
    text.swap(rewritten);
    return first;
}

/// Whether a backslash stands before a quote of the text.
bool OperatorReplacement::isEscaped(std::size_t quote) const {
    if (quote > copied_) return work_.text[quote - 1] == u'\\';
    return !work_.rewritten.empty() && work_.rewritten.back() == u'\\';
}

void OperatorReplacement::copyUpTo(std::size_t position) {
    work_.rewritten.append(work_.text, copied_, position - copied_);
    copied_ = position;
}

}  // namespace kx
