#include "Translated.h"

#include "support/Utf8.h"

Translated::Translated(KxJsTranslator::Options const& options) : translator_(options) {
    host_.initialize();
    std::u16string error;
    host_.evaluate(KxJsTranslator::runTimePart(), error);
}

std::string Translated::run(std::string_view formula) {
    auto const translation = translator_.translate(kx::test::toUtf16(formula));
    if (!translation.findings.empty()) {
        return "error: " + kx::test::toUtf8(translation.findings.front().code);
    }
    std::u16string error;
    std::u16string const result = host_.evaluate(translation.javaScript, error);
    if (host_.lastFailure() == nullptr) return kx::test::toUtf8(result);
    std::string message = kx::test::toUtf8(host_.lastFailure()->message);
    constexpr std::string_view kPrefix = "FormulaError: ";
    if (auto const at = message.find(kPrefix); at != std::string::npos) {
        message.erase(0, at + kPrefix.size());
    }
    return "error: " + message;
}
