#include "translate/check/OperatorScan.h"

#include <algorithm>
#include <array>

namespace kx::translate {
namespace {

constexpr auto kLiteralRules =
    std::to_array<std::u16string_view>({u">=", u"<>", u"/=", u"=<", u"**", u"\\"});

}  // namespace

OperatorScan::OperatorScan(std::u16string_view formula)
    : formula_(formula), hasQuotes_(formula.find_first_of(u"\"'") != std::u16string_view::npos) {
    if (!hasQuotes_) return;
    isReplaced_.resize(formula.size());
    for (std::u16string_view const op : kLiteralRules) {
        if (formula.find(op) != std::u16string_view::npos) scanFor(op);
    }
}

void OperatorScan::scanFor(std::u16string_view op) {
    bool isQuoted = false;
    for (std::size_t i = 0; i + op.size() < formula_.size(); ++i) {
        char16_t const unit = formula_[i];
        if (unit == u'"' || unit == u'\'') {
            if (i == 0) {
                isQuoted = true;
            } else if (formula_[i - 1] != u'\\') {
                isQuoted = !isQuoted;
            }
        }
        if (isQuoted || formula_.substr(i, op.size()) != op) continue;
        isReplaced_[i] = true;
        i += op.size();
    }
}

bool OperatorScan::isMissed(Place sign) const {
    if (!hasQuotes_) return false;
    std::u16string_view const text = formula_.substr(sign.start, sign.end - sign.start);
    bool const hasRule =
        std::find(kLiteralRules.begin(), kLiteralRules.end(), text) != kLiteralRules.end();
    return hasRule && !isReplaced_[sign.start];
}

}  // namespace kx::translate
