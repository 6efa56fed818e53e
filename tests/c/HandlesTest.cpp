// What every function says to handles that are null, freed, of another kind, or mere numbers.
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Objects.h"

namespace {

using kx::test::Findings;
using kx::test::handleOf;
using kx::test::Host;
using kx::test::Text;
using kx::test::TextList;
using kx::test::Translator;

template <class Handle>
struct Call {
    char const* name;
    std::function<kxjs_status(Handle*)> run;
};
#define CALL(function, ...)                                        \
    {                                                              \
#function, [&](auto* it) { return function(__VA_ARGS__); } \
    }

/// Good arguments beside the handle that is tried.
struct Arguments {
    Host host;
    Text text;
    TextList texts;
    kxjs_columns* columns = nullptr;
    kxjs_functions* functions = nullptr;
    kxjs_variable* variable = nullptr;
    kxjs_failure failure{sizeof failure, 0, 0, 0, 0, 0, 0};
    kxjs_frame frame{sizeof frame, 0, 0, 0, 0};
    kxjs_finding finding{sizeof finding, 0, 0, 0, 0};
    kxjs_column_failure columnFailure{sizeof columnFailure, 0, 0, 0, 0, 0};
    std::array<std::uint16_t, 1> u{u'A'};
    std::array<double, 1> d{1};
    std::array<std::uint8_t, 1> b{1};
    std::array<kxjs_span_utf16, 1> spans{{{u.data(), 1}}};
    std::array<std::size_t, 2> offsets{0, 1};
    std::int32_t number = 0;
    std::uint32_t pieces = 0;
    std::size_t count = 0;
    char const* data = nullptr;
    std::uint16_t const* wideData = nullptr;
    std::size_t const* foundOffsets = nullptr;

    Arguments() {
        EXPECT_EQ(kxjs_columns_create(host, &columns), KXJS_OK);
        EXPECT_EQ(kxjs_functions_create(KXJS_CATALOGUE_MATH, &functions), KXJS_OK);
        EXPECT_EQ(kxjs_variable_create("A", 1, &variable), KXJS_OK);
    }
    ~Arguments() {
        EXPECT_EQ(kxjs_columns_free(columns), KXJS_OK);
        EXPECT_EQ(kxjs_functions_free(functions), KXJS_OK);
        EXPECT_EQ(kxjs_variable_free(variable), KXJS_OK);
    }
    Arguments(Arguments const&) = delete;
    Arguments& operator=(Arguments const&) = delete;
};

class CHandles : public testing::Test {
  protected:
    /// Tries wrong handles on each call. `freed` was a handle of the kind; `other` is one of
    /// another.
    template <class Handle, class Other>
    void tryAll(std::vector<Call<Handle>> const& calls, Handle* freed, Other* other) {
        auto const address = reinterpret_cast<std::uintptr_t>(&a);
        std::vector<std::uintptr_t> wrong{1,
                                          15,
                                          16,
                                          address,
                                          ~std::uintptr_t{0},
                                          reinterpret_cast<std::uintptr_t>(freed),
                                          reinterpret_cast<std::uintptr_t>(other)};
        // Bits from 32 on count the uses of a slot; the others here are of the slot's number.
        for (unsigned int const bit : {4U, 20U, 31U, 32U, 63U}) {
            wrong.push_back(reinterpret_cast<std::uintptr_t>(freed) ^ (std::uintptr_t{1} << bit));
        }
        for (Call<Handle> const& call : calls) {
            EXPECT_EQ(call.run(nullptr), KXJS_NULL_ARGUMENT) << call.name;
            for (std::uintptr_t const number : wrong) {
                EXPECT_EQ(call.run(handleOf<Handle>(number)), KXJS_BAD_HANDLE)
                    << call.name << ' ' << number;
            }
        }
    }

    Arguments a;
};

TEST_F(CHandles, OfHosts) {
    void* memory = nullptr;
    kxjs_host* freed = nullptr;
    ASSERT_EQ(kxjs_host_create(&freed), KXJS_OK);
    ASSERT_EQ(kxjs_host_free(freed), KXJS_OK);
    tryAll<kxjs_host, kxjs_text>(
        {
            CALL(kxjs_host_sandbox, it, &a.pieces),
            CALL(kxjs_host_shared_memory, it, &memory, &a.count),
            CALL(kxjs_host_initialize, it),
            CALL(kxjs_host_reset, it),
            CALL(kxjs_host_set_int32, it, "A", 1, 1),
            CALL(kxjs_host_set_int32_utf16, it, a.u.data(), 1, 1),
            CALL(kxjs_host_set_double, it, "A", 1, 1),
            CALL(kxjs_host_set_double_utf16, it, a.u.data(), 1, 1),
            CALL(kxjs_host_set_bool, it, "A", 1, 1),
            CALL(kxjs_host_set_bool_utf16, it, a.u.data(), 1, 1),
            CALL(kxjs_host_set_text, it, "A", 1, "x", 1),
            CALL(kxjs_host_set_text_utf16, it, a.u.data(), 1, a.u.data(), 1),
            CALL(kxjs_host_set_variable, it, a.variable),
            CALL(kxjs_host_variable_type, it, "A", 1, &a.number),
            CALL(kxjs_host_variable_type_utf16, it, a.u.data(), 1, &a.number),
            CALL(kxjs_host_parse, it, "1", 1, &a.number, a.text),
            CALL(kxjs_host_parse_utf16, it, a.u.data(), 1, &a.number, a.text),
            CALL(kxjs_host_execute, it, 0, a.text, a.text),
            CALL(kxjs_host_evaluate, it, "1", 1, a.text, a.text),
            CALL(kxjs_host_evaluate_utf16, it, a.u.data(), 1, a.text, a.text),
            CALL(kxjs_host_failure, it, &a.failure, a.text, a.text),
            CALL(kxjs_host_failure_frame, it, 0, &a.frame, a.text),
            CALL(kxjs_host_set_time_limit, it, 1),
            CALL(kxjs_host_set_memory_limit, it, 1),
            CALL(kxjs_host_set_native_evaluation, it, 1),
            CALL(kxjs_host_terminate, it),
            CALL(kxjs_columns_create, it, &a.columns),
        },
        freed, static_cast<kxjs_text*>(a.text));
}

TEST_F(CHandles, OfColumns) {
    kxjs_columns* freed = nullptr;
    ASSERT_EQ(kxjs_columns_create(a.host, &freed), KXJS_OK);
    ASSERT_EQ(kxjs_columns_free(freed), KXJS_OK);
    tryAll<kxjs_columns, kxjs_host>(
        {
            CALL(kxjs_columns_bind_double, it, "A", 1, a.d.data(), 1),
            CALL(kxjs_columns_bind_double_utf16, it, a.u.data(), 1, a.d.data(), 1),
            CALL(kxjs_columns_bind_int32, it, "A", 1, &a.number, 1),
            CALL(kxjs_columns_bind_int32_utf16, it, a.u.data(), 1, &a.number, 1),
            CALL(kxjs_columns_bind_bool, it, "A", 1, a.b.data(), 1),
            CALL(kxjs_columns_bind_bool_utf16, it, a.u.data(), 1, a.b.data(), 1),
            CALL(kxjs_columns_bind_spans, it, "A", 1, a.spans.data(), 1),
            CALL(kxjs_columns_bind_spans_utf16, it, a.u.data(), 1, a.spans.data(), 1),
            CALL(kxjs_columns_bind_texts, it, "A", 1, a.texts),
            CALL(kxjs_columns_bind_texts_utf16, it, a.u.data(), 1, a.texts),
            CALL(kxjs_columns_compile, it, "1", 1, a.text),
            CALL(kxjs_columns_compile_utf16, it, a.u.data(), 1, a.text),
            CALL(kxjs_columns_set_progress, it, nullptr, nullptr),
            CALL(kxjs_columns_evaluate_double, it, a.d.data(), 1, &a.count, a.text),
            CALL(kxjs_columns_evaluate_bool, it, a.b.data(), 1, &a.count, a.text),
            CALL(kxjs_columns_evaluate_texts, it, a.texts, 1, &a.count, a.text),
            CALL(kxjs_columns_failure_count, it, &a.count),
            CALL(kxjs_columns_failure_records, it, &a.count, 1),
            CALL(kxjs_columns_failure, it, 0, &a.columnFailure, a.text, a.text),
        },
        freed, static_cast<kxjs_host*>(a.host));
}

TEST_F(CHandles, OfTextsAndLists) {
    kxjs_text* text = nullptr;
    kxjs_texts* list = nullptr;
    ASSERT_EQ(kxjs_text_create(&text), KXJS_OK);
    ASSERT_EQ(kxjs_text_free(text), KXJS_OK);
    ASSERT_EQ(kxjs_texts_create(&list), KXJS_OK);
    ASSERT_EQ(kxjs_texts_free(list), KXJS_OK);
    tryAll<kxjs_text, kxjs_texts>(
        {
            CALL(kxjs_text_utf8, it, &a.data, &a.count),
            CALL(kxjs_text_utf16, it, &a.wideData, &a.count),
            CALL(kxjs_convert, "1", 1, it),
            CALL(kxjs_convert_utf16, a.u.data(), 1, it),
            CALL(kxjs_run_time_part, it),
            CALL(kxjs_functions_text, a.functions, 0, KXJS_FUNCTION_NAME, it),
            CALL(kxjs_variable_text, a.variable, it),
            CALL(kxjs_variable_key, a.variable, it),
            CALL(kxjs_variable_to_text, a.variable, it),
            CALL(kxjs_documentation, 0, 0, it),
        },
        text, static_cast<kxjs_texts*>(a.texts));
    tryAll<kxjs_texts, kxjs_text>(
        {
            CALL(kxjs_texts_utf8, it, &a.data, &a.foundOffsets, &a.count),
            CALL(kxjs_texts_utf16, it, &a.wideData, &a.foundOffsets, &a.count),
            CALL(kxjs_texts_separated_utf16, it, 0, &a.wideData, &a.count),
            CALL(kxjs_texts_set, it, "x", a.offsets.data(), 1),
            CALL(kxjs_texts_set_utf16, it, a.u.data(), a.offsets.data(), 1),
            CALL(kxjs_texts_add, it, "x", 1),
            CALL(kxjs_texts_add_utf16, it, a.u.data(), 1),
            CALL(kxjs_extract, "A", 1, 0, nullptr, it, a.text),
            CALL(kxjs_extract_utf16, a.u.data(), 1, 0, nullptr, it, a.text),
            CALL(kxjs_prelude, it),
            CALL(kxjs_columns_bind_texts, a.columns, "A", 1, it),
            CALL(kxjs_columns_evaluate_texts, a.columns, it, 0, &a.count, a.text),
        },
        list, static_cast<kxjs_text*>(a.text));
}

TEST_F(CHandles, OfVariablesAndFunctions) {
    kxjs_variable* variable = nullptr;
    kxjs_functions* functions = nullptr;
    double value = 0;
    ASSERT_EQ(kxjs_variable_create("A", 1, &variable), KXJS_OK);
    ASSERT_EQ(kxjs_variable_free(variable), KXJS_OK);
    ASSERT_EQ(kxjs_functions_create(KXJS_CATALOGUE_EMPTY, &functions), KXJS_OK);
    ASSERT_EQ(kxjs_functions_free(functions), KXJS_OK);
    tryAll<kxjs_variable, kxjs_functions>(
        {
            CALL(kxjs_variable_set_int32, it, 1),
            CALL(kxjs_variable_set_double, it, 1),
            CALL(kxjs_variable_set_bool, it, 1),
            CALL(kxjs_variable_set_text, it, "x", 1),
            CALL(kxjs_variable_set_text_utf16, it, a.u.data(), 1),
            CALL(kxjs_variable_type, it, &a.number),
            CALL(kxjs_variable_int32, it, &a.number),
            CALL(kxjs_variable_double, it, &value),
            CALL(kxjs_variable_bool, it, &a.number),
            CALL(kxjs_variable_text, it, a.text),
            CALL(kxjs_variable_key, it, a.text),
            CALL(kxjs_variable_to_text, it, a.text),
            CALL(kxjs_host_set_variable, a.host, it),
        },
        variable, a.functions);
    tryAll<kxjs_functions, kxjs_variable>(
        {
            CALL(kxjs_functions_count, it, &a.count),
            CALL(kxjs_functions_text, it, 0, KXJS_FUNCTION_NAME, a.text),
            CALL(kxjs_functions_lists, it, 0, a.texts, a.texts, a.texts),
            CALL(kxjs_functions_is_complete, it, 0, &a.number),
            CALL(kxjs_functions_add, it, &a.count),
            CALL(kxjs_functions_set_text, it, 0, KXJS_FUNCTION_NAME, "X", 1),
            CALL(kxjs_functions_set_text_utf16, it, 0, KXJS_FUNCTION_NAME, a.u.data(), 1),
            CALL(kxjs_functions_add_parameter, it, 0, "x", 1, "x", 1),
            CALL(kxjs_functions_add_parameter_utf16, it, 0, a.u.data(), 1, a.u.data(), 1),
            CALL(kxjs_functions_add_example, it, 0, "x", 1),
            CALL(kxjs_functions_add_example_utf16, it, 0, a.u.data(), 1),
        },
        functions, a.variable);
}

TEST_F(CHandles, OfTranslatorsAndFindings) {
    kxjs_translator* translator = nullptr;
    kxjs_findings* findings = nullptr;
    Translator const good;
    Findings const goodFindings;
    ASSERT_EQ(kxjs_translator_create(&translator), KXJS_OK);
    ASSERT_EQ(kxjs_translator_free(translator), KXJS_OK);
    ASSERT_EQ(kxjs_findings_create(&findings), KXJS_OK);
    ASSERT_EQ(kxjs_findings_free(findings), KXJS_OK);
    tryAll<kxjs_translator, kxjs_findings>(
        {
            CALL(kxjs_translator_add_variable, it, "A", 1, KXJS_KIND_TEXT),
            CALL(kxjs_translator_add_variable_utf16, it, a.u.data(), 1, KXJS_KIND_TEXT),
            CALL(kxjs_translator_add_function, it, "A", 1),
            CALL(kxjs_translator_add_function_utf16, it, a.u.data(), 1),
            CALL(kxjs_translator_set_date_format, it, KXJS_LITERAL("YY-MM-DD")),
            CALL(kxjs_translator_set_date_format_utf16, it, a.u.data(), 1),
            CALL(kxjs_translator_set_epoch, it, 1),
            CALL(kxjs_translator_set_exact, it, 1),
            CALL(kxjs_translator_set_strict, it, 1),
            CALL(kxjs_translator_translate, it, "1", 1, a.text, nullptr, a.texts),
            CALL(kxjs_translator_translate_utf16, it, a.u.data(), 1, a.text, nullptr, a.texts),
            CALL(kxjs_translator_check, it, "1", 1, &a.number, a.text, a.text, nullptr),
            CALL(kxjs_translator_check_utf16, it, a.u.data(), 1, &a.number, a.text, a.text,
                 nullptr),
        },
        translator, static_cast<kxjs_findings*>(goodFindings));
    tryAll<kxjs_findings, kxjs_translator>(
        {
            CALL(kxjs_findings_count, it, &a.count),
            CALL(kxjs_findings_get, it, 0, &a.finding, a.text, a.text, a.text, a.text),
        },
        findings, static_cast<kxjs_translator*>(good));
}

TEST_F(CHandles, ThatMayBeNullAreCheckedToo) {
    Host const host;
    std::int32_t script = 17;
    auto* const wrong = handleOf<kxjs_text>(1);
    EXPECT_EQ(kxjs_host_parse(host, "1", 1, &script, wrong), KXJS_BAD_HANDLE);
    EXPECT_EQ(script, 17);
    ASSERT_EQ(kxjs_host_parse(host, "1", 1, &script, nullptr), KXJS_OK);
    EXPECT_EQ(script, 0) << "the call with the wrong handle parsed nothing";
    EXPECT_EQ(kxjs_host_execute(host, 0, wrong, nullptr), KXJS_BAD_HANDLE);
    EXPECT_EQ(kxjs_host_execute(host, 0, nullptr, wrong), KXJS_BAD_HANDLE);
    EXPECT_EQ(kxjs_columns_compile(a.columns, "1", 1, wrong), KXJS_BAD_HANDLE);
    EXPECT_EQ(kxjs_columns_evaluate_double(a.columns, a.d.data(), 0, nullptr, wrong),
              KXJS_BAD_HANDLE);
    EXPECT_EQ(kxjs_host_execute(host, 0, nullptr, nullptr), KXJS_OK);
    // Handles come first, whatever else is wrong.
    EXPECT_EQ(kxjs_functions_text(a.functions, 999, KXJS_FUNCTION_NAME, wrong), KXJS_BAD_HANDLE);
    EXPECT_EQ(kxjs_functions_lists(a.functions, 999, handleOf<kxjs_texts>(1), nullptr, nullptr),
              KXJS_BAD_HANDLE);
}

TEST_F(CHandles, AreFreedOnceAndNullIsNothing) {
    EXPECT_EQ(kxjs_host_free(nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_text_free(nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_texts_free(nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_variable_free(nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_columns_free(nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_translator_free(nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_findings_free(nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_functions_free(nullptr), KXJS_OK);
    kxjs_text* first = nullptr;
    kxjs_text* second = nullptr;
    ASSERT_EQ(kxjs_text_create(&first), KXJS_OK);
    EXPECT_EQ(kxjs_text_free(first), KXJS_OK);
    ASSERT_EQ(kxjs_text_create(&second), KXJS_OK);
    EXPECT_NE(first, second);
    EXPECT_EQ(kxjs_text_free(first), KXJS_BAD_HANDLE);
    EXPECT_EQ(kxjs_host_free(reinterpret_cast<kxjs_host*>(second)), KXJS_BAD_HANDLE);
    EXPECT_EQ(kxjs_text_free(second), KXJS_OK);
}

}  // namespace
