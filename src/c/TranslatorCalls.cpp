#include "c/Border.h"
#include "c/kxjs_translator.h"
#include "convert/Converter.h"

namespace kx::c {
namespace {

template <class Unit>
kxjs_status convert(Unit const* formula, std::size_t length, kxjs_text* javaScript) {
    return guarded([&] {
        auto& result = object<Text>(javaScript);
        result.set(Converter::_convert(textOf(formula, length).c_str()));
        return KXJS_OK;
    });
}

template <class Unit>
kxjs_status addVariable(kxjs_translator* handle, Unit const* key, std::size_t length,
                        std::int32_t kind) {
    return guarded([&] {
        auto& translator = object<Translator>(handle);
        require(kind >= KXJS_KIND_UNKNOWN && kind <= KXJS_KIND_LOGICAL, KXJS_BAD_ARGUMENT);
        KxJsTranslator::Variable variable{textOf(key, length),
                                          static_cast<KxJsTranslator::Kind>(kind)};
        translator.set([&](KxJsTranslator::Options& options) {
            options.variables.push_back(std::move(variable));
        });
        return KXJS_OK;
    });
}

template <class Unit>
kxjs_status addFunction(kxjs_translator* handle, Unit const* name, std::size_t length) {
    return guarded([&] {
        auto& translator = object<Translator>(handle);
        std::u16string text = textOf(name, length);
        translator.set([&](KxJsTranslator::Options& options) {
            options.functions.push_back(std::move(text));
        });
        return KXJS_OK;
    });
}

template <class Unit>
kxjs_status setDateFormat(kxjs_translator* handle, Unit const* format, std::size_t length) {
    return guarded([&] {
        auto& translator = object<Translator>(handle);
        KxJsTranslator::Options asked;
        asked.dateFormat = textOf(format, length);
        try {
            KxJsTranslator const attempt(asked);
        } catch (std::invalid_argument const&) {
            return kxjs_status{KXJS_REFUSED};
        }
        translator.set([&](KxJsTranslator::Options& options) {
            options.dateFormat = std::move(asked.dateFormat);
        });
        return kxjs_status{KXJS_OK};
    });
}

template <class Change>
kxjs_status change(kxjs_translator* handle, Change change) {
    return guarded([&] {
        object<Translator>(handle).set(change);
        return KXJS_OK;
    });
}

/// Findings as damages that have no JavaScript and no rewriting.
std::vector<KxJsTranslator::Damage> damagesOf(std::vector<KxJsTranslator::Finding> findings) {
    std::vector<KxJsTranslator::Damage> damages;
    damages.reserve(findings.size());
    for (KxJsTranslator::Finding& finding : findings) {
        KxJsTranslator::Damage& damage = damages.emplace_back();
        damage.code = std::move(finding.code);
        damage.position = finding.position;
        damage.length = finding.length;
        damage.text = std::move(finding.text);
    }
    return damages;
}

template <class Unit>
kxjs_status translate(kxjs_translator* handle, Unit const* formula, std::size_t length,
                      kxjs_text* javaScript, kxjs_findings* findings, kxjs_texts* variables) {
    return guarded([&] {
        auto& translator = object<Translator>(handle);
        Text* const text = optional<Text>(javaScript);
        auto* const list = optional<Findings>(findings);
        auto* const names = optional<Texts>(variables);
        KxJsTranslator::Translation translation =
            translator.get()->translate(textOf(formula, length));
        bool const isTranslated = translation.findings.empty();
        if (names != nullptr) names->set(translation.variables);
        if (list != nullptr) list->items = damagesOf(std::move(translation.findings));
        setText(text, std::move(translation.javaScript));
        return isTranslated ? KXJS_OK : KXJS_FORMULA_FAILED;
    });
}

template <class Unit>
kxjs_status check(kxjs_translator* handle, Unit const* formula, std::size_t length,
                  std::int32_t* verdict, kxjs_text* javaScript, kxjs_text* rewrite,
                  kxjs_findings* findings) {
    return guarded([&] {
        auto& translator = object<Translator>(handle);
        std::int32_t& result = out(verdict);
        Text* const text = optional<Text>(javaScript);
        Text* const rewriteText = optional<Text>(rewrite);
        auto* const list = optional<Findings>(findings);
        KxJsTranslator::Check check = translator.get()->check(textOf(formula, length));
        result = static_cast<std::int32_t>(check.verdict);
        if (list != nullptr) list->items = std::move(check.damages);
        setText(text, std::move(check.javaScript));
        setText(rewriteText, std::move(check.rewrite));
        return KXJS_OK;
    });
}

}  // namespace
}  // namespace kx::c

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_convert(char const* formula, size_t length, kxjs_text* java_script) {
    return convert(formula, length, java_script);
}

kxjs_status kxjs_convert_utf16(uint16_t const* formula, size_t length, kxjs_text* java_script) {
    return convert(formula, length, java_script);
}

kxjs_status kxjs_translator_create(kxjs_translator** translator) {
    return guarded([&] { return create(&out(translator), std::make_shared<Translator>()); });
}

kxjs_status kxjs_translator_free(kxjs_translator* translator) {
    return guarded([&] { return release<Translator>(translator); });
}

kxjs_status kxjs_translator_add_variable(kxjs_translator* translator, char const* key,
                                         size_t key_length, int32_t kind) {
    return addVariable(translator, key, key_length, kind);
}

kxjs_status kxjs_translator_add_variable_utf16(kxjs_translator* translator, uint16_t const* key,
                                               size_t key_length, int32_t kind) {
    return addVariable(translator, key, key_length, kind);
}

kxjs_status kxjs_translator_add_function(kxjs_translator* translator, char const* name,
                                         size_t name_length) {
    return addFunction(translator, name, name_length);
}

kxjs_status kxjs_translator_add_function_utf16(kxjs_translator* translator, uint16_t const* name,
                                               size_t name_length) {
    return addFunction(translator, name, name_length);
}

kxjs_status kxjs_translator_set_date_format(kxjs_translator* translator, char const* format,
                                            size_t length) {
    return setDateFormat(translator, format, length);
}

kxjs_status kxjs_translator_set_date_format_utf16(kxjs_translator* translator,
                                                  uint16_t const* format, size_t length) {
    return setDateFormat(translator, format, length);
}

kxjs_status kxjs_translator_set_epoch(kxjs_translator* translator, int32_t year) {
    return change(translator, [=](KxJsTranslator::Options& options) { options.epoch = year; });
}

kxjs_status kxjs_translator_set_exact(kxjs_translator* translator, int32_t is_exact) {
    return change(translator,
                  [=](KxJsTranslator::Options& options) { options.exact = is_exact != 0; });
}

kxjs_status kxjs_translator_set_strict(kxjs_translator* translator, int32_t is_strict) {
    return change(translator,
                  [=](KxJsTranslator::Options& options) { options.strict = is_strict != 0; });
}

kxjs_status kxjs_findings_create(kxjs_findings** findings) {
    return guarded([&] { return create(&out(findings), std::make_shared<Findings>()); });
}

kxjs_status kxjs_findings_free(kxjs_findings* findings) {
    return guarded([&] { return release<Findings>(findings); });
}

kxjs_status kxjs_findings_count(kxjs_findings* findings, size_t* count) {
    return guarded([&] {
        auto const& list = object<Findings>(findings);
        out(count) = list.items.size();
        return KXJS_OK;
    });
}

kxjs_status kxjs_findings_get(kxjs_findings* findings, size_t index, kxjs_finding* finding,
                              kxjs_text* code, kxjs_text* text, kxjs_text* java_script,
                              kxjs_text* rewrite) {
    return guarded([&] {
        auto const& list = object<Findings>(findings);
        size_t const size = sizeOfStruct(finding);
        Text* const codeText = optional<Text>(code);
        Text* const itsText = optional<Text>(text);
        Text* const javaScriptText = optional<Text>(java_script);
        Text* const rewriteText = optional<Text>(rewrite);
        require(index < list.items.size(), KXJS_NOT_FOUND);
        KxJsTranslator::Damage const& found = list.items[index];
        kxjs_finding value{};
        value.position = found.position;
        value.length = found.length;
        value.rewrite_position = found.rewritePosition;
        value.rewrite_length = found.rewriteLength;
        writeStruct(*finding, value, size);
        setText(codeText, found.code);
        setText(itsText, found.text);
        setText(javaScriptText, found.javaScript);
        setText(rewriteText, found.rewrite);
        return KXJS_OK;
    });
}

kxjs_status kxjs_translator_translate(kxjs_translator* translator, char const* formula,
                                      size_t length, kxjs_text* java_script,
                                      kxjs_findings* findings, kxjs_texts* variables) {
    return translate(translator, formula, length, java_script, findings, variables);
}

kxjs_status kxjs_translator_translate_utf16(kxjs_translator* translator, uint16_t const* formula,
                                            size_t length, kxjs_text* java_script,
                                            kxjs_findings* findings, kxjs_texts* variables) {
    return translate(translator, formula, length, java_script, findings, variables);
}

kxjs_status kxjs_translator_check(kxjs_translator* translator, char const* formula, size_t length,
                                  int32_t* verdict, kxjs_text* java_script, kxjs_text* rewrite,
                                  kxjs_findings* findings) {
    return check(translator, formula, length, verdict, java_script, rewrite, findings);
}

kxjs_status kxjs_translator_check_utf16(kxjs_translator* translator, uint16_t const* formula,
                                        size_t length, int32_t* verdict, kxjs_text* java_script,
                                        kxjs_text* rewrite, kxjs_findings* findings) {
    return check(translator, formula, length, verdict, java_script, rewrite, findings);
}

kxjs_status kxjs_run_time_part(kxjs_text* java_script) {
    return guarded([&] {
        object<Text>(java_script).set(KxJsTranslator::runTimePart());
        return KXJS_OK;
    });
}

}  // extern "C"
