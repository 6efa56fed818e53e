#include "translate/check/Converted.h"

#include <utility>
#include <variant>

#include "convert/Converter.h"
#include "expression/Script.h"
#include "translate/Letters.h"

namespace kx::translate {
namespace {

constexpr char16_t kLastLatin = u'\u024F';

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
    auto parsed = parseScript(withKnownLetters(converted.javaScript));
    auto const* const refusal = std::get_if<Refusal>(&parsed);
    converted.isTooLarge = refusal != nullptr && refusal->reason == Refusal::Reason::tooComplex;
    converted.compiles = refusal == nullptr || converted.isTooLarge;
    if (auto* const expression = std::get_if<Expression>(&parsed)) {
        converted.expression = std::move(*expression);
    }
    return converted;
}

}  // namespace kx::translate
