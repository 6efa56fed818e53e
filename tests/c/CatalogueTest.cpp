#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "Objects.h"
#include "host/KxJsParser.h"
#include "library/Catalogues.h"
#include "library/Prelude.h"
#include "text/Utf8.h"
#include "translate/KxJsTranslator.h"

namespace {

using kx::test::itemsOf;
using kx::test::Text;
using kx::test::TextList;
using kx::test::Units;

class Functions {
  public:
    explicit Functions(std::int32_t catalogue) {
        EXPECT_EQ(kxjs_functions_create(catalogue, &handle_), KXJS_OK);
    }
    ~Functions() { EXPECT_EQ(kxjs_functions_free(handle_), KXJS_OK); }
    Functions(Functions const&) = delete;
    Functions& operator=(Functions const&) = delete;
    operator kxjs_functions*() const { return handle_; }

    std::size_t count() const {
        std::size_t count = 77;
        EXPECT_EQ(kxjs_functions_count(handle_, &count), KXJS_OK);
        return count;
    }
    std::u16string text(std::size_t index, std::int32_t which) const {
        Text const text;
        EXPECT_EQ(kxjs_functions_text(handle_, index, which, text), KXJS_OK);
        return text.utf16();
    }

  private:
    kxjs_functions* handle_ = nullptr;
};

std::vector<std::string> utf8Of(std::vector<std::u16string> const& texts) {
    std::vector<std::string> result(texts.size());
    std::transform(texts.begin(), texts.end(), result.begin(), kx::utf8FromUtf16);
    return result;
}

void compare(std::int32_t catalogue, std::vector<KxJsFunction> const& expected) {
    Functions const functions(catalogue);
    ASSERT_EQ(functions.count(), expected.size());
    TextList const names;
    TextList const descriptions;
    TextList const examples;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        KxJsFunction const& function = expected[i];
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_NAME), function.getName());
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_DESCRIPTION), function.getDescription());
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_RETURN_DESCRIPTION),
                  function.getReturnDescription());
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_BODY), function.getBody());
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_CATEGORY), function.getCategory());
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_JAVASCRIPT), function.toJavaScript());
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_HTML), function.toHtmlFragment(false));
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_HTML_EXAMPLES), function.toHtmlFragment(true));
        EXPECT_EQ(functions.text(i, KXJS_FUNCTION_HTML_PAGE), function.toHtmlPage());
        ASSERT_EQ(kxjs_functions_lists(functions, i, names, descriptions, examples), KXJS_OK);
        EXPECT_EQ(itemsOf(examples), utf8Of(function.getExamples()));
        ASSERT_EQ(itemsOf(names).size(), function.getParameters().size());
        for (std::size_t p = 0; p < function.getParameters().size(); ++p) {
            EXPECT_EQ(itemsOf(names)[p], kx::utf8FromUtf16(function.getParameters()[p].first));
            EXPECT_EQ(itemsOf(descriptions)[p],
                      kx::utf8FromUtf16(function.getParameters()[p].second));
        }
    }
}

TEST(CCatalogues, AreThoseOfTheLibrary) {
    compare(KXJS_CATALOGUE_MATH, buildMathFunctions());
    compare(KXJS_CATALOGUE_STRING, buildStringFunctions());
    compare(KXJS_CATALOGUE_MISC, buildMiscFunctions());
    compare(KXJS_CATALOGUE_TRANSLATION, KxJsTranslator::functions());
    compare(KXJS_CATALOGUE_EMPTY, {});
}

TEST(CCatalogues, RefuseWhatIsNotThere) {
    kxjs_functions* none = nullptr;
    EXPECT_EQ(kxjs_functions_create(5, &none), KXJS_BAD_ARGUMENT);
    EXPECT_EQ(kxjs_functions_create(-1, &none), KXJS_BAD_ARGUMENT);
    Functions const functions(KXJS_CATALOGUE_MATH);
    Text const text;
    EXPECT_EQ(kxjs_functions_text(functions, functions.count(), KXJS_FUNCTION_NAME, text),
              KXJS_NOT_FOUND);
    EXPECT_EQ(kxjs_functions_text(functions, 0, 9, text), KXJS_BAD_ARGUMENT);
    EXPECT_EQ(kxjs_functions_set_text(functions, 0, KXJS_FUNCTION_HTML, "x", 1), KXJS_BAD_ARGUMENT);
}

TEST(CCatalogues, TakeRecordsOfTheApplication) {
    Functions const functions(KXJS_CATALOGUE_EMPTY);
    std::size_t index = 77;
    std::int32_t isComplete = 1;
    Units const description(u"Doubles a n\u00fcmber");
    Units const name(u"num");
    Units const example(u"TWICE(2) &rarr; 4");
    ASSERT_EQ(kxjs_functions_add(functions, &index), KXJS_OK);
    ASSERT_EQ(index, 0U);
    auto const set = [&](std::int32_t which, char const* text, std::size_t length) {
        return kxjs_functions_set_text(functions, 0, which, text, length);
    };
    EXPECT_EQ(set(KXJS_FUNCTION_NAME, KXJS_LITERAL("twice")), KXJS_REFUSED);
    EXPECT_EQ(set(KXJS_FUNCTION_NAME, KXJS_LITERAL("TWICE")), KXJS_OK);
    EXPECT_EQ(kxjs_functions_set_text_utf16(functions, 0, KXJS_FUNCTION_DESCRIPTION,
                                            description.data(), description.size()),
              KXJS_OK);
    EXPECT_EQ(set(KXJS_FUNCTION_RETURN_DESCRIPTION, KXJS_LITERAL("The double")), KXJS_OK);
    EXPECT_EQ(set(KXJS_FUNCTION_BODY, KXJS_LITERAL("{")), KXJS_REFUSED);
    EXPECT_EQ(set(KXJS_FUNCTION_BODY, KXJS_LITERAL("return num*2;")), KXJS_OK);
    EXPECT_EQ(set(KXJS_FUNCTION_CATEGORY, KXJS_LITERAL("mine")), KXJS_OK);
    EXPECT_EQ(kxjs_functions_add_parameter(functions, 0, "", 0, "x", 1), KXJS_REFUSED);
    EXPECT_EQ(kxjs_functions_add_parameter(functions, 0, "num", 3, "A number", 8), KXJS_OK);
    EXPECT_EQ(kxjs_functions_add_parameter_utf16(functions, 0, name.data(), name.size(),
                                                 description.data(), description.size()),
              KXJS_OK);
    EXPECT_EQ(kxjs_functions_is_complete(functions, 0, &isComplete), KXJS_OK);
    EXPECT_EQ(isComplete, 0);
    EXPECT_EQ(kxjs_functions_add_example(functions, 0, KXJS_LITERAL("TWICE(1) &rarr; 2")), KXJS_OK);
    EXPECT_EQ(kxjs_functions_add_example_utf16(functions, 0, example.data(), example.size()),
              KXJS_OK);
    EXPECT_EQ(kxjs_functions_is_complete(functions, 0, &isComplete), KXJS_OK);
    EXPECT_EQ(isComplete, 1);
    EXPECT_NE(functions.text(0, KXJS_FUNCTION_JAVASCRIPT).find(u"function TWICE"),
              std::u16string::npos);
    TextList const examples;
    ASSERT_EQ(kxjs_functions_lists(functions, 0, nullptr, nullptr, examples), KXJS_OK);
    EXPECT_EQ(itemsOf(examples).size(), 2U);
}

TEST(CDocumentation, IsThatOfTheClass) {
    Text const html;
    for (int const standalone : {0, 1}) {
        for (int const examples : {0, 1}) {
            ASSERT_EQ(kxjs_documentation(standalone, examples, html), KXJS_OK);
            EXPECT_EQ(html.utf16(),
                      KxJsParser::_getUserDocumentation(standalone != 0, examples != 0));
        }
    }
    TextList const names;
    TextList const pages;
    ASSERT_EQ(kxjs_documentation_pages(names, pages), KXJS_OK);
    auto const expected = KxJsParser::_getUserDocumentation();
    ASSERT_EQ(itemsOf(names).size(), expected.size());
    ASSERT_EQ(itemsOf(pages).size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); i += 20) {
        EXPECT_EQ(itemsOf(names)[i], kx::utf8FromUtf16(expected[i].first));
        EXPECT_EQ(itemsOf(pages)[i], kx::utf8FromUtf16(expected[i].second));
    }
    TextList const statements;
    ASSERT_EQ(kxjs_prelude(statements), KXJS_OK);
    EXPECT_EQ(itemsOf(statements), utf8Of(buildPrelude()));
}

}  // namespace
