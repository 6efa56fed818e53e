// Translates and checks whatever the fuzzer makes: findings lie in the formula, both ways agree on
// what is a formula, and what is proposed keeps its meaning.
#include <algorithm>
#include <cstdint>
#include <string>

#include "support/Check.h"
#include "support/Units.h"
#include "translate/KxJsTranslator.h"

namespace {

using Verdict = KxJsTranslator::Verdict;

void checkPlace(std::u16string const& formula, std::size_t position, std::size_t length) {
    bool const isInside = position <= formula.size() && length <= formula.size() - position;
    kx::fuzz::check(isInside, "a place outside the formula");
}

void checkFormula(KxJsTranslator const& translator, std::u16string const& formula) {
    auto const translation = translator.translate(formula);
    bool const isTranslated = translation.findings.empty();
    kx::fuzz::check(isTranslated != translation.javaScript.empty(), "no JavaScript, no finding");
    bool isFormula = true;
    for (auto const& finding : translation.findings) {
        checkPlace(formula, finding.position, finding.length);
        if (finding.code == u"SYNTAX") isFormula = false;
    }
    auto const result = translator.check(formula);
    kx::fuzz::check((result.verdict == Verdict::NOT_A_FORMULA) != isFormula, "two opinions");
    for (auto const& damage : result.damages) {
        checkPlace(formula, damage.position, damage.length);
        checkPlace(formula, damage.rewritePosition, damage.rewriteLength);
    }
    bool const isExplained = result.verdict == Verdict::SAME || !result.damages.empty();
    kx::fuzz::check(isExplained, "a verdict without a finding");
    if (result.rewrite.empty()) return;
    Verdict const rewritten = translator.check(result.rewrite).verdict;
    bool const isKept = rewritten == Verdict::SAME || rewritten == Verdict::DIFFERS ||
                        rewritten == Verdict::UNKNOWN;
    if (!isKept) kx::fuzz::show("rewriting", result.rewrite);
    kx::fuzz::check(isKept, "a rewriting that does not keep its meaning");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static KxJsTranslator const plain;
    static KxJsTranslator const exact = [] {
        KxJsTranslator::Options options;
        options.exact = true;
        options.variables = {{u"S", KxJsTranslator::Kind::TEXT},
                             {u"a", KxJsTranslator::Kind::NUMBER},
                             {u"L", KxJsTranslator::Kind::LOGICAL}};
        return KxJsTranslator(options);
    }();
    std::u16string text = kx::fuzz::textOf({reinterpret_cast<char const*>(data), size});
    // The conversion ends there.
    text.resize(std::min(text.find(u'\0'), text.size()));
    checkFormula(plain, text);
    checkFormula(exact, text);
    return 0;
}
