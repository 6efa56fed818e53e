#include "c/Border.h"
#include "c/kxjs_catalogue.h"
#include "host/KxJsParser.h"
#include "library/Catalogues.h"
#include "library/Prelude.h"

namespace kx::c {
namespace {

std::vector<KxJsFunction> recordsOf(std::int32_t catalogue) {
    switch (catalogue) {
        case KXJS_CATALOGUE_EMPTY:
            return {};
        case KXJS_CATALOGUE_MATH:
            return buildMathFunctions();
        case KXJS_CATALOGUE_STRING:
            return buildStringFunctions();
        case KXJS_CATALOGUE_MISC:
            return buildMiscFunctions();
        case KXJS_CATALOGUE_TRANSLATION:
            return KxJsTranslator::functions();
        default:
            throw Leave{KXJS_BAD_ARGUMENT};
    }
}

KxJsFunction& recordOf(Functions& functions, std::size_t index) {
    require(index < functions.records.size(), KXJS_NOT_FOUND);
    return functions.records[index];
}

KxJsFunction& recordOf(kxjs_functions* handle, std::size_t index) {
    return recordOf(object<Functions>(handle), index);
}

std::u16string textOfRecord(KxJsFunction const& record, std::int32_t which) {
    switch (which) {
        case KXJS_FUNCTION_NAME:
            return record.getName();
        case KXJS_FUNCTION_DESCRIPTION:
            return record.getDescription();
        case KXJS_FUNCTION_RETURN_DESCRIPTION:
            return record.getReturnDescription();
        case KXJS_FUNCTION_BODY:
            return record.getBody();
        case KXJS_FUNCTION_CATEGORY:
            return record.getCategory();
        case KXJS_FUNCTION_JAVASCRIPT:
            return record.toJavaScript();
        case KXJS_FUNCTION_HTML:
            return record.toHtmlFragment(false);
        case KXJS_FUNCTION_HTML_EXAMPLES:
            return record.toHtmlFragment(true);
        case KXJS_FUNCTION_HTML_PAGE:
            return record.toHtmlPage();
        default:
            throw Leave{KXJS_BAD_ARGUMENT};
    }
}

bool setTextOfRecord(KxJsFunction& record, std::int32_t which, std::u16string text) {
    switch (which) {
        case KXJS_FUNCTION_NAME:
            return record.setName(std::move(text));
        case KXJS_FUNCTION_DESCRIPTION:
            return record.setDescription(std::move(text));
        case KXJS_FUNCTION_RETURN_DESCRIPTION:
            return record.setReturnDescription(std::move(text));
        case KXJS_FUNCTION_BODY:
            return record.setBody(std::move(text));
        case KXJS_FUNCTION_CATEGORY:
            record.setCategory(std::move(text));
            return true;
        default:
            throw Leave{KXJS_BAD_ARGUMENT};
    }
}

kxjs_status accepted(bool isAccepted) { return isAccepted ? KXJS_OK : KXJS_REFUSED; }

template <class Unit>
kxjs_status setRecordText(kxjs_functions* handle, std::size_t index, std::int32_t which,
                          Unit const* text, std::size_t length) {
    return guarded([&] {
        KxJsFunction& record = recordOf(handle, index);
        return accepted(setTextOfRecord(record, which, textOf(text, length)));
    });
}

template <class Unit>
kxjs_status addParameter(kxjs_functions* handle, std::size_t index, Unit const* name,
                         std::size_t nameLength, Unit const* description,
                         std::size_t descriptionLength) {
    return guarded([&] {
        KxJsFunction& record = recordOf(handle, index);
        return accepted(record.addParameter(
            {textOf(name, nameLength), textOf(description, descriptionLength)}));
    });
}

template <class Unit>
kxjs_status addExample(kxjs_functions* handle, std::size_t index, Unit const* example,
                       std::size_t length) {
    return guarded([&] {
        KxJsFunction& record = recordOf(handle, index);
        return accepted(record.addExample(textOf(example, length)));
    });
}

/// Pairs of texts as two lists, each of which may be null.
void setLists(Texts* firsts, Texts* seconds,
              std::vector<std::pair<std::u16string, std::u16string>> const& pairs) {
    std::vector<std::u16string> first;
    std::vector<std::u16string> second;
    for (auto const& pair : pairs) {
        if (firsts != nullptr) first.push_back(pair.first);
        if (seconds != nullptr) second.push_back(pair.second);
    }
    if (firsts != nullptr) firsts->set(first);
    if (seconds != nullptr) seconds->set(second);
}

}  // namespace
}  // namespace kx::c

using namespace kx::c;  // NOLINT(google-build-using-namespace)

extern "C" {

kxjs_status kxjs_functions_create(int32_t catalogue, kxjs_functions** functions) {
    return guarded([&] {
        kxjs_functions*& handle = out(functions);
        auto made = std::make_shared<Functions>();
        made->records = recordsOf(catalogue);
        return create(&handle, std::move(made));
    });
}

kxjs_status kxjs_functions_free(kxjs_functions* functions) {
    return guarded([&] { return release<Functions>(functions); });
}

kxjs_status kxjs_functions_count(kxjs_functions* functions, size_t* count) {
    return guarded([&] {
        auto const& list = object<Functions>(functions);
        out(count) = list.records.size();
        return KXJS_OK;
    });
}

kxjs_status kxjs_functions_text(kxjs_functions* functions, size_t index, int32_t which,
                                kxjs_text* text) {
    return guarded([&] {
        auto& records = object<Functions>(functions);
        auto& result = object<Text>(text);
        result.set(textOfRecord(recordOf(records, index), which));
        return KXJS_OK;
    });
}

kxjs_status kxjs_functions_lists(kxjs_functions* functions, size_t index, kxjs_texts* parameters,
                                 kxjs_texts* descriptions, kxjs_texts* examples) {
    return guarded([&] {
        auto& records = object<Functions>(functions);
        auto* const names = optional<Texts>(parameters);
        auto* const texts = optional<Texts>(descriptions);
        auto* const exampleTexts = optional<Texts>(examples);
        KxJsFunction const& record = recordOf(records, index);
        setLists(names, texts, record.getParameters());
        if (exampleTexts != nullptr) exampleTexts->set(record.getExamples());
        return KXJS_OK;
    });
}

kxjs_status kxjs_functions_is_complete(kxjs_functions* functions, size_t index,
                                       int32_t* is_complete) {
    return guarded([&] {
        KxJsFunction const& record = recordOf(functions, index);
        out(is_complete) = record.isComplete() ? 1 : 0;
        return KXJS_OK;
    });
}

kxjs_status kxjs_functions_add(kxjs_functions* functions, size_t* index) {
    return guarded([&] {
        auto& list = object<Functions>(functions);
        size_t& result = out(index);
        list.records.emplace_back();
        result = list.records.size() - 1;
        return KXJS_OK;
    });
}

kxjs_status kxjs_functions_set_text(kxjs_functions* functions, size_t index, int32_t which,
                                    char const* text, size_t length) {
    return setRecordText(functions, index, which, text, length);
}

kxjs_status kxjs_functions_set_text_utf16(kxjs_functions* functions, size_t index, int32_t which,
                                          uint16_t const* text, size_t length) {
    return setRecordText(functions, index, which, text, length);
}

kxjs_status kxjs_functions_add_parameter(kxjs_functions* functions, size_t index, char const* name,
                                         size_t name_length, char const* description,
                                         size_t description_length) {
    return addParameter(functions, index, name, name_length, description, description_length);
}

kxjs_status kxjs_functions_add_parameter_utf16(kxjs_functions* functions, size_t index,
                                               uint16_t const* name, size_t name_length,
                                               uint16_t const* description,
                                               size_t description_length) {
    return addParameter(functions, index, name, name_length, description, description_length);
}

kxjs_status kxjs_functions_add_example(kxjs_functions* functions, size_t index, char const* example,
                                       size_t length) {
    return addExample(functions, index, example, length);
}

kxjs_status kxjs_functions_add_example_utf16(kxjs_functions* functions, size_t index,
                                             uint16_t const* example, size_t length) {
    return addExample(functions, index, example, length);
}

kxjs_status kxjs_documentation(int32_t is_standalone, int32_t with_examples, kxjs_text* html) {
    return guarded([&] {
        auto& text = object<Text>(html);
        text.set(KxJsParser::_getUserDocumentation(is_standalone != 0, with_examples != 0));
        return KXJS_OK;
    });
}

kxjs_status kxjs_documentation_pages(kxjs_texts* names, kxjs_texts* pages) {
    return guarded([&] {
        auto* const nameTexts = optional<Texts>(names);
        auto* const pageTexts = optional<Texts>(pages);
        setLists(nameTexts, pageTexts, KxJsParser::_getUserDocumentation());
        return KXJS_OK;
    });
}

kxjs_status kxjs_prelude(kxjs_texts* statements) {
    return guarded([&] {
        object<Texts>(statements).set(buildPrelude());
        return KXJS_OK;
    });
}

}  // extern "C"
