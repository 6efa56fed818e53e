// What every function says to texts that are none, to pointers that are null, and to structures of
// a wrong size.
#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include "Objects.h"

namespace {

using kx::test::Findings;
using kx::test::Host;
using kx::test::Text;
using kx::test::TextList;
using kx::test::Translator;

constexpr std::size_t kHuge = std::numeric_limits<std::size_t>::max();

template <class Unit>
struct TextCall {
    char const* name;
    std::function<kxjs_status(Unit const*, std::size_t)> run;
};
#define TEXT_CALL(function, ...)                                                               \
    {                                                                                          \
#function, [&](auto const* data, std::size_t length) { return function(__VA_ARGS__); } \
    }

class CTextArguments : public testing::Test {
  protected:
    CTextArguments() {
        EXPECT_EQ(kxjs_columns_create(host, &columns), KXJS_OK);
        EXPECT_EQ(kxjs_functions_create(KXJS_CATALOGUE_MATH, &functions), KXJS_OK);
        EXPECT_EQ(kxjs_variable_create("A", 1, &variable), KXJS_OK);
    }
    ~CTextArguments() override {
        EXPECT_EQ(kxjs_columns_free(columns), KXJS_OK);
        EXPECT_EQ(kxjs_functions_free(functions), KXJS_OK);
        EXPECT_EQ(kxjs_variable_free(variable), KXJS_OK);
    }

    Host host;
    Text text;
    TextList texts;
    Translator translator;
    kxjs_columns* columns = nullptr;
    kxjs_functions* functions = nullptr;
    kxjs_variable* variable = nullptr;
    kxjs_variable* made = nullptr;
    std::int32_t number = 17;
    double value = 0;
    std::uint8_t byte = 0;
    kxjs_span_utf16 span{nullptr, 0};
};

TEST_F(CTextArguments, OfUtf8) {
    std::vector<TextCall<char>> const calls{
        TEXT_CALL(kxjs_texts_add, texts, data, length),
        TEXT_CALL(kxjs_variable_create, data, length, &made),
        TEXT_CALL(kxjs_variable_set_text, variable, data, length),
        TEXT_CALL(kxjs_host_set_int32, host, data, length, 1),
        TEXT_CALL(kxjs_host_set_double, host, data, length, 1),
        TEXT_CALL(kxjs_host_set_bool, host, data, length, 1),
        TEXT_CALL(kxjs_host_set_text, host, data, length, "x", 1),
        TEXT_CALL(kxjs_host_set_text, host, "A", 1, data, length),
        TEXT_CALL(kxjs_host_variable_type, host, data, length, &number),
        TEXT_CALL(kxjs_host_parse, host, data, length, &number, text),
        TEXT_CALL(kxjs_host_evaluate, host, data, length, text, text),
        TEXT_CALL(kxjs_extract, data, length, 0, nullptr, texts, text),
        TEXT_CALL(kxjs_columns_bind_double, columns, data, length, &value, 1),
        TEXT_CALL(kxjs_columns_bind_int32, columns, data, length, &number, 1),
        TEXT_CALL(kxjs_columns_bind_bool, columns, data, length, &byte, 1),
        TEXT_CALL(kxjs_columns_bind_spans, columns, data, length, &span, 1),
        TEXT_CALL(kxjs_columns_bind_texts, columns, data, length, texts),
        TEXT_CALL(kxjs_columns_compile, columns, data, length, text),
        TEXT_CALL(kxjs_convert, data, length, text),
        TEXT_CALL(kxjs_translator_add_variable, translator, data, length, KXJS_KIND_TEXT),
        TEXT_CALL(kxjs_translator_add_function, translator, data, length),
        TEXT_CALL(kxjs_translator_set_date_format, translator, data, length),
        TEXT_CALL(kxjs_translator_translate, translator, data, length, text, nullptr, nullptr),
        TEXT_CALL(kxjs_translator_check, translator, data, length, &number, text, text, nullptr),
        TEXT_CALL(kxjs_functions_set_text, functions, 0, KXJS_FUNCTION_BODY, data, length),
        TEXT_CALL(kxjs_functions_add_parameter, functions, 0, data, length, "x", 1),
        TEXT_CALL(kxjs_functions_add_parameter, functions, 0, "x", 1, data, length),
        TEXT_CALL(kxjs_functions_add_example, functions, 0, data, length),
    };
    // A lone byte, a cut character, an overlong form, a surrogate, more than U+10FFFF.
    std::vector<std::string> const invalid{"\xff", "a\xc3", "\xc0\x80", "\xed\xa0\x80",
                                           "\xf4\x90\x80\x80"};
    for (TextCall<char> const& call : calls) {
        for (std::string const& bytes : invalid) {
            EXPECT_EQ(call.run(bytes.data(), bytes.size()), KXJS_INVALID_UTF8) << call.name;
        }
        EXPECT_EQ(call.run(nullptr, 1), KXJS_NULL_ARGUMENT) << call.name;
        EXPECT_EQ(call.run("x", kHuge), KXJS_TOO_LONG) << call.name;
        EXPECT_EQ(call.run("x", KXJS_MAX_LENGTH + 1), KXJS_TOO_LONG) << call.name;
        EXPECT_EQ(call.run(nullptr, kHuge), KXJS_TOO_LONG) << call.name;
    }
    EXPECT_EQ(made, nullptr);
}

TEST_F(CTextArguments, OfUtf16) {
    std::array<std::uint16_t, 1> const u{u'A'};
    std::vector<TextCall<std::uint16_t>> const calls{
        TEXT_CALL(kxjs_texts_add_utf16, texts, data, length),
        TEXT_CALL(kxjs_variable_create_utf16, data, length, &made),
        TEXT_CALL(kxjs_variable_set_text_utf16, variable, data, length),
        TEXT_CALL(kxjs_host_set_int32_utf16, host, data, length, 1),
        TEXT_CALL(kxjs_host_set_double_utf16, host, data, length, 1),
        TEXT_CALL(kxjs_host_set_bool_utf16, host, data, length, 1),
        TEXT_CALL(kxjs_host_set_text_utf16, host, data, length, u.data(), 1),
        TEXT_CALL(kxjs_host_set_text_utf16, host, u.data(), 1, data, length),
        TEXT_CALL(kxjs_host_variable_type_utf16, host, data, length, &number),
        TEXT_CALL(kxjs_host_parse_utf16, host, data, length, &number, text),
        TEXT_CALL(kxjs_host_evaluate_utf16, host, data, length, text, text),
        TEXT_CALL(kxjs_extract_utf16, data, length, 0, nullptr, texts, text),
        TEXT_CALL(kxjs_columns_bind_double_utf16, columns, data, length, &value, 1),
        TEXT_CALL(kxjs_columns_bind_int32_utf16, columns, data, length, &number, 1),
        TEXT_CALL(kxjs_columns_bind_bool_utf16, columns, data, length, &byte, 1),
        TEXT_CALL(kxjs_columns_bind_spans_utf16, columns, data, length, &span, 1),
        TEXT_CALL(kxjs_columns_bind_texts_utf16, columns, data, length, texts),
        TEXT_CALL(kxjs_columns_compile_utf16, columns, data, length, text),
        TEXT_CALL(kxjs_convert_utf16, data, length, text),
        TEXT_CALL(kxjs_translator_add_variable_utf16, translator, data, length, KXJS_KIND_TEXT),
        TEXT_CALL(kxjs_translator_add_function_utf16, translator, data, length),
        TEXT_CALL(kxjs_translator_set_date_format_utf16, translator, data, length),
        TEXT_CALL(kxjs_translator_translate_utf16, translator, data, length, text, nullptr,
                  nullptr),
        TEXT_CALL(kxjs_translator_check_utf16, translator, data, length, &number, text, text,
                  nullptr),
        TEXT_CALL(kxjs_functions_set_text_utf16, functions, 0, KXJS_FUNCTION_BODY, data, length),
        TEXT_CALL(kxjs_functions_add_parameter_utf16, functions, 0, data, length, u.data(), 1),
        TEXT_CALL(kxjs_functions_add_parameter_utf16, functions, 0, u.data(), 1, data, length),
        TEXT_CALL(kxjs_functions_add_example_utf16, functions, 0, data, length),
    };
    for (TextCall<std::uint16_t> const& call : calls) {
        EXPECT_EQ(call.run(nullptr, 1), KXJS_NULL_ARGUMENT) << call.name;
        EXPECT_EQ(call.run(u.data(), kHuge), KXJS_TOO_LONG) << call.name;
        EXPECT_EQ(call.run(u.data(), KXJS_MAX_LENGTH + 1), KXJS_TOO_LONG) << call.name;
    }
    EXPECT_EQ(made, nullptr);
}

TEST_F(CTextArguments, OutParametersMustBeThere) {
    Findings const findings;
    char const* data = nullptr;
    std::uint16_t const* wide = nullptr;
    std::size_t const* offsets = nullptr;
    std::size_t count = 0;
    std::vector<kxjs_status> const statuses{
        kxjs_host_create(nullptr),
        kxjs_host_create_isolated(nullptr, nullptr, text),
        kxjs_text_create(nullptr),
        kxjs_texts_create(nullptr),
        kxjs_variable_create("A", 1, nullptr),
        kxjs_columns_create(host, nullptr),
        kxjs_translator_create(nullptr),
        kxjs_findings_create(nullptr),
        kxjs_functions_create(KXJS_CATALOGUE_MATH, nullptr),
        kxjs_text_utf8(text, nullptr, &count),
        kxjs_text_utf16(text, nullptr, &count),
        kxjs_texts_utf8(texts, nullptr, &offsets, &count),
        kxjs_texts_utf8(texts, &data, nullptr, &count),
        kxjs_texts_utf8(texts, &data, &offsets, nullptr),
        kxjs_texts_utf16(texts, nullptr, &offsets, &count),
        kxjs_texts_utf16(texts, &wide, nullptr, &count),
        kxjs_texts_utf16(texts, &wide, &offsets, nullptr),
        kxjs_texts_separated_utf16(texts, 0, nullptr, &count),
        kxjs_texts_separated_utf16(texts, 0, &wide, nullptr),
        kxjs_variable_type(variable, nullptr),
        kxjs_variable_int32(variable, nullptr),
        kxjs_variable_double(variable, nullptr),
        kxjs_variable_bool(variable, nullptr),
        kxjs_host_sandbox(host, nullptr),
        kxjs_host_shared_memory(host, nullptr, &count),
        kxjs_host_variable_type(host, "A", 1, nullptr),
        kxjs_host_parse(host, "1", 1, nullptr, text),
        kxjs_host_failure(host, nullptr, text, text),
        kxjs_host_failure_frame(host, 0, nullptr, text),
        kxjs_columns_evaluate_double(columns, nullptr, 1, nullptr, text),
        kxjs_columns_evaluate_bool(columns, nullptr, 1, nullptr, text),
        kxjs_columns_failure_count(columns, nullptr),
        kxjs_columns_failure_records(columns, nullptr, 1),
        kxjs_columns_failure(columns, 0, nullptr, text, text),
        kxjs_translator_check(translator, "1", 1, nullptr, text, text, nullptr),
        kxjs_findings_count(findings, nullptr),
        kxjs_findings_get(findings, 0, nullptr, text, text, text, text),
        kxjs_functions_count(functions, nullptr),
        kxjs_functions_is_complete(functions, 0, nullptr),
        kxjs_functions_add(functions, nullptr),
    };
    for (std::size_t i = 0; i < statuses.size(); ++i) {
        EXPECT_EQ(statuses[i], KXJS_NULL_ARGUMENT) << "call " << i;
    }
    std::size_t functionsNow = 0;
    ASSERT_EQ(kxjs_functions_count(functions, &functionsNow), KXJS_OK);
    EXPECT_EQ(functionsNow, 14U);
}

TEST_F(CTextArguments, StructuresHaveASize) {
    ASSERT_EQ(kxjs_host_evaluate(host, "x", 1, nullptr, nullptr), KXJS_FORMULA_FAILED);
    struct Newer {
        kxjs_failure known;
        std::uint64_t added;
    } newer{{}, 5};
    for (std::size_t const size : {std::size_t{0}, sizeof(kxjs_failure) - 1, kHuge}) {
        newer.known.struct_size = size;
        EXPECT_EQ(kxjs_host_failure(host, &newer.known, nullptr, nullptr), KXJS_BAD_ARGUMENT);
    }
    newer.known.struct_size = sizeof newer;
    ASSERT_EQ(kxjs_host_failure(host, &newer.known, nullptr, nullptr), KXJS_OK);
    EXPECT_EQ(newer.known.line, 1);
    EXPECT_EQ(newer.known.struct_size, sizeof newer);
    EXPECT_EQ(newer.added, 0U) << "what this library does not know is 0";
    newer.added = 5;
    newer.known.struct_size = sizeof newer.known;
    ASSERT_EQ(kxjs_host_failure(host, &newer.known, nullptr, nullptr), KXJS_OK);
    EXPECT_EQ(newer.added, 5U) << "what the application does not know stays";
}

}  // namespace
