#include "cli/formula/FormulaReader.h"

#include "convert/Converter.h"

namespace kx {

FormulaReader::FormulaReader(LanguageOptions const& options,
                             std::vector<std::u16string> const& keys)
    : isJavaScript_(options.isJavaScript) {
    if (!options.isTranslated) return;
    KxJsTranslator::Options translation;
    translation.exact = options.isExact;
    for (std::u16string const& key : keys) translation.variables.push_back({key});
    translator_.emplace(translation);
}

void FormulaReader::prepare(KxJsParser& host) const {
    if (!translator_) return;
    // Where it fails, so does each formula, with an error text of its own.
    std::u16string ignored;
    host.evaluate(KxJsTranslator::runTimePart(), ignored);
}

FormulaRun FormulaReader::read(std::u16string const& formula) const {
    FormulaRun run;
    if (!translator_) {
        run.javaScript = isJavaScript_ ? formula : Converter::_convert(formula.c_str());
        return run;
    }
    KxJsTranslator::Translation translation = translator_->translate(formula);
    run.javaScript = std::move(translation.javaScript);
    if (translation.findings.empty()) return run;
    KxJsTranslator::Finding const& first = translation.findings.front();
    run.refusedAt = Span{first.position, first.position + first.length};
    run.errorText = describeFindings(translation.findings);
    run.hasFailed = true;
    return run;
}

std::u16string describeFindings(std::vector<KxJsTranslator::Finding> const& findings) {
    std::u16string text;
    for (KxJsTranslator::Finding const& finding : findings) {
        if (!text.empty()) text += u'\n';
        text.append(finding.code).append(u": ").append(finding.text);
    }
    return text;
}

}  // namespace kx
