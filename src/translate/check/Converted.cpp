#include "translate/check/Converted.h"

#include <utility>
#include <variant>

#include "convert/Converter.h"
#include "expression/Parser.h"
#include "text/LineEnd.h"
#include "translate/Letters.h"
#include "translate/check/Patches.h"

namespace kx::translate {
namespace {

constexpr char16_t kLastLatin = u'\u024F';

/// Replaces comments by blanks. Line ends stay.
void clearComments(std::u16string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t const unit = text[i];
        if (unit == u'"' || unit == u'\'') {
            for (++i; i < text.size() && text[i] != unit; ++i) {
                if (text[i] == u'\\') ++i;
            }
            continue;
        }
        if (unit != u'/' || i + 1 >= text.size()) continue;
        if (text[i + 1] == u'/') {
            while (i < text.size() && !isLineEnd(text[i])) text[i++] = u' ';
        } else if (text[i + 1] == u'*') {
            std::size_t const end = text.find(u"*/", i + 2);
            if (end == std::u16string::npos) return;
            for (; i < end + 2; ++i) {
                if (!isLineEnd(text[i])) text[i] = u' ';
            }
            --i;
        }
    }
}

}  // namespace

std::u16string withKnownLetters(std::u16string_view text) {
    std::u16string known(text);
    for (char16_t& unit : known) {
        constexpr char16_t kFirst = u'\u0100';
        constexpr char16_t kCount = kLastLatin - kFirst;
        if (unit > kLastLatin && isLetterBeyondAscii(unit)) {
            unit = static_cast<char16_t>(kFirst + unit % kCount);
        }
    }
    return known;
}

Converted convertFormula(std::u16string_view formula) {
    Converted converted;
    converted.javaScript = Converter::_convert(std::u16string(formula).c_str());
    Patches patches{withKnownLetters(converted.javaScript)};
    clearComments(patches.text);
    // Each patch removes what was refused; formulas that need many are no formulas of interest.
    constexpr int kMostPatches = 64;
    for (int i = 0; i < kMostPatches; ++i) {
        auto parsed = parseExpression(patches.text);
        if (auto* const expression = std::get_if<Expression>(&parsed)) {
            converted.compiles = true;
            converted.isOther = patches.isOther;
            converted.expression = std::move(*expression);
            return converted;
        }
        auto const& refusal = std::get<Refusal>(parsed);
        if (refusal.reason == Refusal::Reason::tooComplex) {
            converted.compiles = converted.isTooLarge = true;
            return converted;
        }
        if (!patches.patch(refusal)) return converted;
    }
    return converted;
}

}  // namespace kx::translate
